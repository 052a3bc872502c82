target_link_libraries(${target} PRIVATE brindle_game)
