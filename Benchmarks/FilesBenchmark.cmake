# Peers: libzip and PhysicsFS open the same packs, minizip reads the same members by itself.
# minizip is linked without its include directory, which has a zip.h of its own.
pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
find_library(PHYSFS_LIBRARY physfs REQUIRED)
target_link_libraries(bench_files PRIVATE PkgConfig::LIBZIP ${PHYSFS_LIBRARY} ${pkgcfg_lib_MINIZIP_minizip} ZLIB::ZLIB)
