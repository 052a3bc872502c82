# The two programs that are started: the game up to its first picture, and a bare window.
add_executable(bare_window startup/BareWindow.cpp)
target_link_libraries(bare_window PRIVATE brindle_flags sdl2 epoxy)
add_executable(game_start startup/GameStart.cpp)
target_link_libraries(game_start PRIVATE brindle_game brindle_sdl sdl2)
target_compile_definitions(game_start PRIVATE BRINDLE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
add_dependencies(${target} bare_window game_start)
target_compile_definitions(${target} PRIVATE BRINDLE_BENCHMARK_DIR="${CMAKE_CURRENT_BINARY_DIR}")
