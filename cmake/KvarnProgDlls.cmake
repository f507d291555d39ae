# kvarnprog_copy_dlls(program): copies the library's DLL and the run-time libraries that it shares
# with its programs beside the program, whenever that is linked. Windows starts it with these alone.
# Called in the folder that makes the program; elsewhere than on Windows there is nothing to copy.
# $<TARGET_RUNTIME_DLLS:program> names the library's DLL, and knows nothing of the compiler's.
function(kvarnprog_copy_dlls program)
    if(NOT WIN32)
        return()
    endif()
    set(dlls "$<TARGET_FILE:KvarnProg::kvarnprog>")
    get_target_property(names KvarnProg::kvarnprog KVARNPROG_RUNTIME)
    foreach(name IN LISTS names)
        list(APPEND dlls "$<TARGET_FILE_DIR:KvarnProg::kvarnprog>/${name}")
    endforeach()
    add_custom_command(TARGET ${program} POST_BUILD
        COMMAND "${CMAKE_COMMAND}" -E copy_if_different ${dlls} "$<TARGET_FILE_DIR:${program}>"
        VERBATIM)
endfunction()
