# Moves the debug symbols of FILE into FILE.debug, once: a build may ask again without linking anew,
# for instance when it makes the links of a shared object.
execute_process(COMMAND "${OBJDUMP}" -h "${FILE}" OUTPUT_VARIABLE sections
    COMMAND_ERROR_IS_FATAL ANY)
if(sections MATCHES "gnu_debuglink")
    return()
endif()
set(ENV{SOURCE_DATE_EPOCH} 0) # the tools for Windows write the time of their run otherwise
execute_process(COMMAND "${OBJCOPY}" --only-keep-debug "${FILE}" "${FILE}.debug"
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${STRIP}" --strip-unneeded "${FILE}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${OBJCOPY}" "--add-gnu-debuglink=${FILE}.debug" "${FILE}"
    COMMAND_ERROR_IS_FATAL ANY)
