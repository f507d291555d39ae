# The run-time libraries that the DLL and its clients share: thrown texts cross the border, and a
# static copy on each side would miscount them. They lie beside the programs and go into the package,
# without the compiler's own debug symbols, which are nine tenths of them.
#
# A compiler that runs on Windows keeps them in its own folder and answers with the bare name: that
# folder is on the user's path.
set(kvarnprog_runtime)
set(beside "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
if(NOT beside)
    set(beside "${CMAKE_CURRENT_BINARY_DIR}")
endif()
set(stripped "${CMAKE_CURRENT_BINARY_DIR}/stripped")
file(MAKE_DIRECTORY "${beside}" "${stripped}")
cmake_path(GET CMAKE_CXX_COMPILER PARENT_PATH compiler_folder)
foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT IS_ABSOLUTE "${path}")
        set(path "${compiler_folder}/${name}")
    endif()
    if(NOT EXISTS "${path}")
        message(STATUS "${name} is not known to the compiler: programs find it on their path")
        continue()
    endif()
    if("${path}" IS_NEWER_THAN "${stripped}/${name}")
        # Which writes the time of its run otherwise.
        execute_process(COMMAND "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=0
            "${CMAKE_STRIP}" -o "${stripped}/${name}" "${path}"
            COMMAND_ERROR_IS_FATAL ANY)
    endif()
    file(COPY_FILE "${stripped}/${name}" "${beside}/${name}" ONLY_IF_DIFFERENT)
    list(APPEND kvarnprog_runtime "${stripped}/${name}")
endforeach()
