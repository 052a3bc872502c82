# Peers: the same build of expat that the engine links, with handlers that do nothing, and the DOM of libxml2.
pkg_check_modules(LIBXML2 REQUIRED IMPORTED_TARGET libxml-2.0)
target_link_libraries(bench_xml PRIVATE expatw PkgConfig::LIBXML2)
