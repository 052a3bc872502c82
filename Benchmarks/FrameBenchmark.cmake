target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/Tools/simulate/Machine.cpp ${CMAKE_SOURCE_DIR}/Tools/simulate/Stage.cpp)
target_link_libraries(${target} PRIVATE brindle_game brindle_sdl sdl2 minizip)
