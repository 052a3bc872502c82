find_package(SFML 2.5 COMPONENTS graphics REQUIRED)
target_link_libraries(${target} PRIVATE brindle_sdl sfml-graphics)
# SFML is to find the program's own glDrawArrays.
set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
