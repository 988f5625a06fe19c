# What types text, apart from Platform: see TextTyper.h.
pkg_check_modules(XCB_KEYBOARDS REQUIRED IMPORTED_TARGET xcb xcb-xinput xcb-xkb xcb-xtest)

target_sources(PlatformTyping PRIVATE
  Linux/Portal/PortalTyping.cpp Linux/Portal/PortalTyping.h
  Linux/Portal/WorkerLine.h
  Linux/Typing/TextTypers.cpp Linux/Typing/TextTypers.h
  Linux/Typing/TypedSymbols.cpp Linux/Typing/TypedSymbols.h
  Linux/Wayland/TypingKeymap.cpp Linux/Wayland/TypingKeymap.h
  Linux/Wayland/WlrootsTextTyper.cpp Linux/Wayland/WlrootsTextTyper.h
  Linux/X11/HeldControl.cpp Linux/X11/HeldControl.h
  Linux/X11/KeymapGuard.cpp Linux/X11/KeymapGuard.h
  Linux/X11/KeyReaders.cpp Linux/X11/KeyReaders.h
  Linux/X11/LentKeys.cpp Linux/X11/LentKeys.h
  Linux/X11/XKeyboards.cpp Linux/X11/XKeyboards.h
  Linux/X11/XKeymap.cpp Linux/X11/XKeymap.h Linux/X11/XKeymapChange.cpp
  Linux/X11/Xkb.h
  Linux/X11/XtestTextTyper.cpp Linux/X11/XtestTextTyper.h
)
target_link_libraries(PlatformTyping PRIVATE Platform Qt6::DBus WlrootsProtocols PkgConfig::XCB_KEYBOARDS PkgConfig::XKBCOMMON)
