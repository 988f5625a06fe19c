# What knows the user's permissions and opens links, apart from Platform: see Permissions.h.
target_sources(PlatformPermissions PRIVATE
  Linux/LinuxPermissionServices.cpp
  Linux/Permissions/BusQuestion.cpp Linux/Permissions/BusQuestion.h
  Linux/Permissions/CalendarRequest.cpp Linux/Permissions/CalendarRequest.h
  Linux/Permissions/DesktopLinkOpener.cpp Linux/Permissions/DesktopLinkOpener.h
  Linux/Permissions/LinuxPermissions.cpp Linux/Permissions/LinuxPermissions.h
  Linux/Permissions/MicrophoneQuestions.cpp Linux/Permissions/MicrophoneQuestions.h
  Linux/Permissions/MicrophoneRequest.cpp Linux/Permissions/MicrophoneRequest.h
  Linux/Permissions/Sandbox.cpp Linux/Permissions/Sandbox.h
  Linux/Permissions/SettingsPages.cpp Linux/Permissions/SettingsPages.h
)
target_link_libraries(PlatformPermissions PRIVATE Platform PlatformListening Qt6::DBus)
