# The hardware of a Linux machine, apart from Platform: see HardwareRegistry.h.
target_sources(PlatformHardware PRIVATE
  Linux/FileDescriptor.h
  Linux/Sysfs/HardwareService.h
  Linux/Sysfs/HidFeature.cpp Linux/Sysfs/HidFeature.h
  Linux/Sysfs/HidItems.cpp Linux/Sysfs/HidItems.h
  Linux/Sysfs/HidReportDescriptor.cpp Linux/Sysfs/HidReportDescriptor.h
  Linux/Sysfs/HidrawDevice.cpp Linux/Sysfs/HidrawDevice.h
  Linux/Sysfs/HidrawServices.cpp Linux/Sysfs/HidrawServices.h
  Linux/Sysfs/HingeServices.cpp Linux/Sysfs/HingeServices.h
  Linux/Sysfs/IioDevice.cpp Linux/Sysfs/IioDevice.h
  Linux/Sysfs/LightScale.cpp Linux/Sysfs/LightScale.h
  Linux/Sysfs/LightServices.cpp Linux/Sysfs/LightServices.h
  Linux/Sysfs/MotionServices.cpp Linux/Sysfs/MotionServices.h
  Linux/Sysfs/NumberedTable.h
  Linux/Sysfs/ServiceTable.cpp Linux/Sysfs/ServiceTable.h
  Linux/Sysfs/SysfsFile.cpp Linux/Sysfs/SysfsFile.h
  Linux/Sysfs/SysfsHardwareRegistry.cpp Linux/Sysfs/SysfsHardwareRegistry.h
  Linux/Sysfs/SysfsText.cpp Linux/Sysfs/SysfsText.h
)
