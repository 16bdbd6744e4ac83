# Sets AMBREL_HAS_LAYER_SHELL: whether windows can be put at the edges of a screen in a Wayland session. KDE's library has
# the toolkit make them; Debian has it for Qt 6 from 13 on. WLR_LAYER_SHELL_XML and XDG_SHELL_XML describe the protocol,
# which names types of xdg-shell, and IDLE_INHIBIT_XML that of a window that keeps the screens on.
find_package(LayerShellQt 6 CONFIG QUIET)
# Debian has wlroots' protocols beside Rust's bindings alone.
file(GLOB _rust_protocols /usr/share/cargo/registry/wayland-protocols*/wlr-protocols)
find_file(XDG_SHELL_XML stable/xdg-shell/xdg-shell.xml PATHS /usr/share/wayland-protocols)
find_file(IDLE_INHIBIT_XML unstable/idle-inhibit/idle-inhibit-unstable-v1.xml PATHS /usr/share/wayland-protocols)
find_file(WLR_LAYER_SHELL_XML unstable/wlr-layer-shell-unstable-v1.xml PATHS /usr/share/wlr-protocols ${_rust_protocols})
set(AMBREL_HAS_LAYER_SHELL OFF)
if(LayerShellQt_FOUND AND WLR_LAYER_SHELL_XML AND XDG_SHELL_XML AND IDLE_INHIBIT_XML)
  set(AMBREL_HAS_LAYER_SHELL ON)
endif()
