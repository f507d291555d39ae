# kvarnprog_symbols_apart(target folder): with KVARNPROG_SYMBOLS_APART the debug symbols of what is
# installed to the folder go into a file of their own, which the program or library names. Debuggers
# look for it beside that on Windows, and below lib/debug elsewhere.
function(kvarnprog_symbols_apart target folder)
    if(NOT KVARNPROG_SYMBOLS_APART)
        return()
    endif()
    set(file "$<TARGET_FILE:${target}>")
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND "${CMAKE_COMMAND}" "-DFILE=${file}" "-DOBJCOPY=${CMAKE_OBJCOPY}"
            "-DOBJDUMP=${CMAKE_OBJDUMP}" "-DSTRIP=${CMAKE_STRIP}"
            -P "${PROJECT_SOURCE_DIR}/cmake/TakeSymbols.cmake"
        VERBATIM)
    if(NOT WIN32)
        set(folder "lib/debug${CMAKE_INSTALL_PREFIX}/${folder}")
    endif()
    install(FILES "${file}.debug" DESTINATION "${folder}" COMPONENT Symbols EXCLUDE_FROM_ALL)
endfunction()
