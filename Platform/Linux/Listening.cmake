# What listens to the session's input, apart from Platform: see InputListener.h.
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
stirra_wayland_protocols(OutputProtocols "${WAYLAND_PROTOCOLS}/unstable/xdg-output/xdg-output-unstable-v1.xml")

target_sources(PlatformListening PRIVATE
  Linux/LinuxInputListener.cpp
  Linux/Listening/CompositorView.cpp
  Linux/Listening/Delivery.h
  Linux/Listening/HeldButtons.h
  Linux/Listening/KeyText.cpp Linux/Listening/KeyText.h
  Linux/Listening/LibinputTap.cpp Linux/Listening/LibinputTap.h
  Linux/Listening/SeatDevices.cpp Linux/Listening/SeatDevices.h
  Linux/Listening/SessionActivity.cpp Linux/Listening/SessionActivity.h
  Linux/Listening/SessionOutput.cpp Linux/Listening/SessionOutput.h
  Linux/Listening/SessionView.h
  Linux/Listening/XkbPointer.h
  Linux/VirtualKeys.cpp Linux/VirtualKeys.h
  Linux/X11/OwnPresses.h
  Linux/X11/XButtons.cpp Linux/X11/XButtons.h
  Linux/X11/XInputTap.cpp Linux/X11/XInputTap.h
  Linux/X11/XKeyText.cpp Linux/X11/XKeyText.h
)
target_link_libraries(PlatformListening PRIVATE Platform Qt6::DBus OutputProtocols PkgConfig::LISTENING PkgConfig::SYSTEMD
  PkgConfig::WAYLAND_CLIENT)
