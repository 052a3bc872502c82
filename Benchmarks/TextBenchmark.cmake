find_package(SFML 2.5 COMPONENTS graphics REQUIRED)
target_link_libraries(${target} PRIVATE sfml-graphics)
