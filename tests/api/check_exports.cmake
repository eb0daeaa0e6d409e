# Compares what the built library exports with the list of exports, in both directions.
# Call: cmake -DNM=nm -DLIBRARY=libmeasdata.so -DLIST=exports.txt -P check_exports.cmake
execute_process(
  COMMAND ${NM} --dynamic --defined-only --demangle --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY
)
string(REGEX REPLACE " [A-Za-z] [0-9a-f]+( [0-9a-f]+)?\n" ";" exported "${symbols}")
list(REMOVE_ITEM exported "")
file(STRINGS ${LIST} expected)
set(unexpected ${exported})
list(REMOVE_ITEM unexpected ${expected})
set(missing ${expected})
list(REMOVE_ITEM missing ${exported})
if(unexpected OR missing)
  message(FATAL_ERROR "exported but not listed: [${unexpected}]; listed but missing: [${missing}]")
endif()
list(LENGTH exported count)
message(STATUS "${count} exports, exactly those listed")
