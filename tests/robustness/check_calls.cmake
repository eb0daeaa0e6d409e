# Looks for functions of the C interface that a program never names, comments aside.
# Call: cmake -DLIST=exports.txt -DSOURCE=c_boundary.c -P check_calls.cmake
file(STRINGS ${LIST} names)
list(FILTER names EXCLUDE REGEX "\\(") # C++
file(READ ${SOURCE} source)
string(REGEX REPLACE "/[*]([^*]|[*][^/])*[*]/|\"[^\"\n]*\"" "" source "${source}")
foreach(name IN LISTS names)
  # A call, or an entry of a table that is called.
  if(NOT source MATCHES "[^a-z_]${name}\\(|Q\\(${name}\\)")
    list(APPEND missing ${name})
  endif()
endforeach()
if(missing)
  message(FATAL_ERROR "never called: ${missing}")
endif()
list(LENGTH names count)
message(STATUS "all ${count} functions are called")
