# Clean roots of Debian releases, for scripts that source this file and run as root.
#
#   root_make SUITE FOLDER [PACKAGES...]   makes the root in FOLDER unless it is there; packages come with it
#   root_lock FOLDER                       so that one run at a time uses what is in the folder; until the script ends
#   root_run FOLDER COMMAND...             runs a command inside; what it changes stays
#   root_try FOLDER UPPER COMMAND...       the same, but what it changes is in the folder UPPER alone
#
# ROOT_BIND=FROM:TO mounts a folder of this machine inside for the two latter, FROM at TO.

root_fail() { echo "clean root: $*" >&2; return 1; }

# Packages come from the first archive of Debian itself that apt knows, in the way in which this machine reaches it.
root_make() {
  local suite=$1 root=$2 mirror packages=ca-certificates each
  shift 2
  if [ ! -d "$root" ]; then
    for each in "$@"; do packages+=,$each; done
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' | head -n 1)
    [ -n "$mirror" ] || root_fail "apt knows no Debian archive; run apt-get update first" || return
    mkdir -p "$(dirname "$root")"
    apt-config dump Acquire | grep -E '^Acquire::(https?|Retries|Check-[A-Za-z-]*)[: ]' >"$root.apt.conf" || true
    rm -rf --one-file-system "$root.new"
    mmdebstrap --variant=apt --aptopt="$root.apt.conf" --include="$packages" "$suite" "$root.new" "$mirror" ||
      root_fail "no root of '$suite' came from $mirror" || return
    mv "$root.new" "$root"
  fi
  cp -L /etc/resolv.conf "$root/etc/resolv.conf"
}

root_lock() {
  mkdir -p "$1"
  exec 9>"$1/lock"
  flock --nonblock 9 || root_fail "another run uses $1"
}

root_run() { root_try "$1" '' "${@:2}"; }

# Its processes and mounts end with it; the outer shell stays, to collect orphans.
root_try() {
  unshare --mount --pid --fork --kill-child --propagation private bash -euc '
    root=$1 upper=$2 bind=$3; shift 3
    if [ -n "$upper" ]; then
      mkdir -p "$upper/changes" "$upper/work" "$upper/whole"
      mount -t overlay overlay -o "lowerdir=$root,upperdir=$upper/changes,workdir=$upper/work" "$upper/whole"
      root=$upper/whole
    fi
    mount -t proc proc "$root/proc"
    mount --rbind /sys "$root/sys"
    mount --rbind /dev "$root/dev"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
    if [ -n "$bind" ]; then
      mkdir -p "$root/${bind#*:}"
      mount --bind "${bind%%:*}" "$root/${bind#*:}"
    fi
    chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
      CCACHE_DIR=/var/cache/ccache CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}" "$@"
    exit $?
  ' clean-root "$1" "$2" "${ROOT_BIND:-}" "${@:3}"
}
