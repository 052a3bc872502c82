# Every library that the program links, each as one target. Their headers are system headers, so that our warnings
# are about our code alone.
find_package(PkgConfig REQUIRED)
find_package(PNG REQUIRED)
find_package(JPEG REQUIRED)
find_package(ZLIB REQUIRED)
find_path(GLM_INCLUDE_DIR glm/glm.hpp REQUIRED)
find_library(EXPATW_LIBRARY expatw REQUIRED)
find_path(STB_INCLUDE_DIR stb_image.h PATH_SUFFIXES stb REQUIRED)

pkg_check_modules(MINIZIP REQUIRED IMPORTED_TARGET minizip)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(EPOXY REQUIRED IMPORTED_TARGET epoxy)
pkg_check_modules(OPENAL REQUIRED IMPORTED_TARGET openal)
pkg_check_modules(FREETYPE REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(HARFBUZZ REQUIRED IMPORTED_TARGET harfbuzz)
pkg_check_modules(FRIBIDI REQUIRED IMPORTED_TARGET fribidi)
pkg_check_modules(SNDFILE REQUIRED IMPORTED_TARGET sndfile)
add_library(minizip ALIAS PkgConfig::MINIZIP)
add_library(sdl2 ALIAS PkgConfig::SDL2)
add_library(epoxy ALIAS PkgConfig::EPOXY)
add_library(openal ALIAS PkgConfig::OPENAL)
add_library(freetype ALIAS PkgConfig::FREETYPE)
add_library(harfbuzz ALIAS PkgConfig::HARFBUZZ)
add_library(fribidi ALIAS PkgConfig::FRIBIDI)
add_library(sndfile ALIAS PkgConfig::SNDFILE)

add_library(glm INTERFACE)
target_include_directories(glm SYSTEM INTERFACE ${GLM_INCLUDE_DIR})

# The build of expat that hands out 16-bit characters.
add_library(expatw INTERFACE)
target_compile_definitions(expatw INTERFACE XML_UNICODE)
target_link_libraries(expatw INTERFACE ${EXPATW_LIBRARY})
