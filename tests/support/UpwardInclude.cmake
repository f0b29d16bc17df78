# Builds a small tree whose logic reaches up into a screen and runs the layer
# check on it: the check must fail and name the file, or this test fails.
file(REMOVE_RECURSE "${WORK_DIR}")
file(WRITE "${WORK_DIR}/src/columns/Reach.cpp" "#include \"screens/frmHeaders.h\"\n")
file(WRITE "${WORK_DIR}/src/screens/frmHeaders.h" "#pragma once\n")
execute_process(COMMAND ${CMAKE_COMMAND} -DSOURCE_DIR=${WORK_DIR} -P ${LAYERS_SCRIPT}
                RESULT_VARIABLE result ERROR_VARIABLE errors)
if(result EQUAL 0)
  message(FATAL_ERROR "The layer check passed a logic file that includes a screen")
endif()
if(NOT errors MATCHES "src/columns/Reach.cpp: #include \"screens/frmHeaders.h\"")
  message(FATAL_ERROR "The layer check failed without naming the upward include:\n${errors}")
endif()
file(REMOVE_RECURSE "${WORK_DIR}")
