#include "core/disk/Findings.h"

namespace ambrel {
namespace {

using enum CleanupTarget::Kind;

constexpr std::array original{
    CleanupTarget{"derivedData", "DerivedData", "Build products. Xcode builds them again.",
                  "Library/Developer/Xcode/DerivedData", rebuildable, "hammer"},
    CleanupTarget{"deviceSupport", "Device Support", "Debug symbols for devices. Xcode copies them again.",
                  "Library/Developer/Xcode/iOS DeviceSupport", rebuildable, "iphone"},
    CleanupTarget{"simulatorCaches", "Simulator Caches", "Simulator runtime caches.",
                  "Library/Developer/CoreSimulator/Caches", rebuildable, "ipad.and.iphone"},
    CleanupTarget{"appCaches", "App Caches", "Apps rebuild their caches. Quit large apps first.", "Library/Caches",
                  rebuildable, "archivebox"},
    CleanupTarget{"npm", "npm Cache", "Packages npm downloads again when needed.", ".npm/_cacache", rebuildable,
                  "shippingbox"},
    CleanupTarget{"gradle", "Gradle Caches", "Dependencies Gradle downloads again.", ".gradle/caches", rebuildable,
                  "shippingbox"},
    CleanupTarget{"archives", "Xcode Archives", "Your archived builds. Keep the ones you still ship.",
                  "Library/Developer/Xcode/Archives", review, "archivebox.fill"},
    CleanupTarget{"simulators", "Simulators", "Remove old simulators in Xcode, Devices and Simulators.",
                  "Library/Developer/CoreSimulator/Devices", review, "iphone.gen3"}};

constexpr std::array packageManagers{
    CleanupTarget{"pnpm", "pnpm Store", "Packages pnpm downloads again.", "Library/pnpm/store", rebuildable,
                  "shippingbox"},
    CleanupTarget{"yarn", "Yarn Cache", "Packages Yarn downloads again.", "Library/Caches/Yarn", rebuildable,
                  "shippingbox"},
    CleanupTarget{"pip", "pip Cache", "Python packages pip downloads again.", "Library/Caches/pip", rebuildable,
                  "shippingbox"},
    CleanupTarget{"cocoapods", "CocoaPods Cache", "Pods CocoaPods downloads again.", "Library/Caches/CocoaPods",
                  rebuildable, "shippingbox"},
    CleanupTarget{"homebrew", "Homebrew Cache", "Downloads Homebrew keeps after an install.", "Library/Caches/Homebrew",
                  rebuildable, "shippingbox"}};

constexpr CleanupTarget tool(std::string_view id, std::string_view title, std::string_view detail,
                             std::string_view path) {
  return {id, title, detail, path, rebuildable, "shippingbox"};
}

// Each tool's own documentation says that the folder is filled again; the page is named beside it.
constexpr std::array linuxDeveloper{
    // https://pnpm.io/cli/store
    // Projects hold hard links to its files.
    tool("pnpmShare", "pnpm Store",
         "Packages pnpm downloads again. The space of those that projects link to comes free with the projects.",
         ".local/share/pnpm/store"),
    // https://classic.yarnpkg.com/en/docs/cli/cache
    tool("yarnCache", "Yarn Cache", "Packages Yarn downloads again.", ".cache/yarn"),
    // https://yarnpkg.com/cli/cache/clean
    tool("yarnBerry", "Yarn Global Cache", "Packages Yarn downloads again.", ".yarn/berry/cache"),
    // https://pip.pypa.io/en/stable/topics/caching/
    tool("pipCache", "pip Cache", "Python packages pip downloads again.", ".cache/pip"),
    // https://docs.astral.sh/uv/concepts/cache/
    tool("uv", "uv Cache",
         "Python packages uv downloads and builds again. The space of those that environments link to comes free with "
         "the environments.",
         ".cache/uv"),
    // https://doc.rust-lang.org/cargo/guide/cargo-home.html
    tool("cargoArchives", "Cargo Downloads", "Crates Cargo downloads again.", ".cargo/registry/cache"),
    tool("cargoSources", "Cargo Sources", "Crates Cargo unpacks again.", ".cargo/registry/src"),
    tool("cargoCheckouts", "Cargo Checkouts", "Repositories Cargo checks out again.", ".cargo/git/checkouts"),
    // https://pkg.go.dev/cmd/go#hdr-Build_and_test_caching
    tool("goBuild", "Go Build Cache", "Build results Go makes again.", ".cache/go-build"),
    // https://go.dev/ref/mod#module-cache
    tool("goModules", "Go Module Downloads", "Modules Go downloads again.", "go/pkg/mod/cache/download"),
    // https://docs.gradle.org/current/userguide/directory_layout.html
    tool("gradleWrapper", "Gradle Distributions", "Gradle versions the wrapper downloads again.",
         ".gradle/wrapper/dists"),
    // https://maven.apache.org/guides/introduction/introduction-to-repositories.html
    CleanupTarget{"maven", "Maven Repository",
                  "Dependencies Maven downloads again. Builds you installed there yourself do not come back.",
                  ".m2/repository", review, "shippingbox"},
    // https://ccache.dev/manual/latest.html
    tool("ccache", "ccache", "Compiler results ccache stores again.", ".cache/ccache"),
    tool("ccacheOld", "ccache", "Compiler results ccache stores again.", ".ccache")};

constexpr CleanupTarget application(std::string_view id, std::string_view title, std::string_view path) {
  return {id, title, "Apps rebuild their caches. Quit large apps first.", path, rebuildable, "archivebox"};
}

// https://specifications.freedesktop.org/basedir-spec/latest/: a cache holds "non-essential data files".
constexpr std::array linuxApplications{application("firefoxCache", "Firefox Cache", ".cache/mozilla"),
                                       application("chromeCache", "Chrome Cache", ".cache/google-chrome"),
                                       application("chromiumCache", "Chromium Cache", ".cache/chromium"),
                                       application("braveCache", "Brave Cache", ".cache/BraveSoftware"),
                                       application("edgeCache", "Edge Cache", ".cache/microsoft-edge"),
                                       // https://specifications.freedesktop.org/thumbnail-spec/latest/
                                       application("thumbnails", "Thumbnails", ".cache/thumbnails"),
                                       // https://docs.flatpak.org/en/latest/conventions.html
                                       application("flatpakCaches", "Flatpak Cache", ".var/app/*/cache"),
                                       // https://snapcraft.io/docs/data-locations
                                       application("snapCaches", "Snap Cache", "snap/*/common/.cache"),
                                       application("xdgCaches", "App Caches", ".cache")};

}  // namespace

std::span<const CleanupTarget> cleanupTargets() { return original; }
std::span<const CleanupTarget> packageManagerTargets() { return packageManagers; }
std::span<const CleanupTarget> linuxDeveloperTargets() { return linuxDeveloper; }
std::span<const CleanupTarget> linuxApplicationTargets() { return linuxApplications; }

}  // namespace ambrel
