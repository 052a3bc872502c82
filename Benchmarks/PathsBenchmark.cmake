# Boost.Graph and LEMON are headers alone; LEMON's end with C++17.
find_path(LEMON_INCLUDE_DIR lemon/dijkstra.h REQUIRED)
add_library(bench_lemon STATIC paths/LemonSearch.cpp)
set_target_properties(bench_lemon PROPERTIES CXX_STANDARD 17)
target_include_directories(bench_lemon PRIVATE ${CMAKE_SOURCE_DIR})
target_include_directories(bench_lemon SYSTEM PRIVATE ${LEMON_INCLUDE_DIR})
target_link_libraries(${target} PRIVATE brindle_game bench_lemon)
