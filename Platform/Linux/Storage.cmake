# What keeps things, apart from Platform: see StorageServices.h.
pkg_check_modules(SECRET REQUIRED IMPORTED_TARGET libsecret-1)

target_sources(PlatformStorage PRIVATE
  Linux/Defaults/DefaultsFile.cpp Linux/Defaults/DefaultsFile.h
  Linux/Defaults/SqliteDefaultsStore.cpp Linux/Defaults/SqliteDefaultsStore.h
  Linux/LinuxStorage.cpp
  Linux/Secrets/GlibPointer.h
  Linux/Secrets/SecretBus.cpp Linux/Secrets/SecretBus.h
  Linux/Secrets/SecretServiceStore.cpp Linux/Secrets/SecretServiceStore.h
  Linux/Secrets/TimedCalls.cpp Linux/Secrets/TimedCalls.h
)
target_link_libraries(PlatformStorage PRIVATE PlatformSqlite PkgConfig::SECRET)
