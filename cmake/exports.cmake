# Lets a shared library export the names in a list and nothing else, and call its own functions even
# where a program or another library holds functions of the same names.
#
# Instantiations of the standard library's templates are visible whatever the compiler is told; only
# the linker can leave them out.
function(measdata_export_only library list)
  if(NOT UNIX OR APPLE)
    return()
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} names)
  set(c_names "")
  set(cpp_names "")
  foreach(name IN LISTS names)
    if(name MATCHES "\\(")
      string(APPEND cpp_names "    \"${name}\";\n")
    else()
      string(APPEND c_names "  ${name};\n")
    endif()
  endforeach()
  if(cpp_names)
    string(PREPEND cpp_names "  extern \"C++\" {\n")
    string(APPEND cpp_names "  };\n")
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${library}.map)
  file(
    CONFIGURE
    OUTPUT ${script}
    CONTENT "{\nglobal:\n@c_names@@cpp_names@local:\n  *;\n};\n"
    @ONLY
  )
  target_link_options(
    ${library} PRIVATE LINKER:--version-script=${script} LINKER:-Bsymbolic-functions
  )
  set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()
