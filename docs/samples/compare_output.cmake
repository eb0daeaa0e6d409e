# Runs a sample and compares its output with the output that the guide shows.
# Call: cmake -DCOMMAND=program;argument;... -DOUTPUT=file -P compare_output.cmake
execute_process(
  COMMAND ${COMMAND}
  OUTPUT_VARIABLE printed
  COMMAND_ERROR_IS_FATAL ANY
)
file(READ ${OUTPUT} shown)
if(NOT printed STREQUAL shown)
  message(FATAL_ERROR "printed:\n${printed}\nbut ${OUTPUT} shows:\n${shown}")
endif()
