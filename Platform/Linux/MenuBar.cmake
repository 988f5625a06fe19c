# What shows a program in the panel, apart from Platform: see MenuBarServices.h.
target_sources(PlatformMenuBar PRIVATE
  Linux/LinuxMenuBar.cpp
  Linux/StatusNotifier/MenuNodes.cpp Linux/StatusNotifier/MenuNodes.h
  Linux/StatusNotifier/MenuService.cpp Linux/StatusNotifier/MenuService.h
  Linux/StatusNotifier/NotifierItem.cpp Linux/StatusNotifier/NotifierItem.h
  Linux/StatusNotifier/NotifierPixmap.cpp Linux/StatusNotifier/NotifierPixmap.h
  Linux/StatusNotifier/NotifierStatusItem.cpp Linux/StatusNotifier/NotifierStatusItem.h
  Linux/StatusNotifier/PanelTint.cpp Linux/StatusNotifier/PanelTint.h
  Linux/StatusNotifier/PanelWatch.cpp Linux/StatusNotifier/PanelWatch.h
)
target_link_libraries(PlatformMenuBar PRIVATE Qt6::DBus)
