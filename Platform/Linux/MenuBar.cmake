# What shows a program in the panel, apart from Platform: see MenuBarServices.h.
target_sources(PlatformMenuBar PRIVATE
  Linux/Bus/BusConnection.cpp Linux/Bus/BusConnection.h
  Linux/Bus/BusName.cpp Linux/Bus/BusName.h
  Linux/Bus/BusObject.h
  Linux/Bus/BusPointer.h
  Linux/Bus/BusValues.cpp Linux/Bus/BusValues.h
  Linux/LinuxMenuBar.cpp
  Linux/StatusNotifier/MenuProperties.cpp Linux/StatusNotifier/MenuProperties.h
  Linux/StatusNotifier/MenuService.cpp Linux/StatusNotifier/MenuService.h
  Linux/StatusNotifier/NotifierItem.cpp Linux/StatusNotifier/NotifierItem.h
  Linux/StatusNotifier/NotifierStatusItem.cpp Linux/StatusNotifier/NotifierStatusItem.h
  Linux/StatusNotifier/PanelTint.cpp Linux/StatusNotifier/PanelTint.h
  Linux/StatusNotifier/PanelWatch.cpp Linux/StatusNotifier/PanelWatch.h
  Linux/X11/XCompositing.cpp Linux/X11/XCompositing.h
)
target_link_libraries(PlatformMenuBar PRIVATE PkgConfig::SYSTEMD)
