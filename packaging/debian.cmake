# The Debian packages libmeasdata1, libmeaskit1, their -dev packages and measdata-tools, made by cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR measdata)
set(CPACK_PACKAGE_CONTACT "The measdata developers <measdata@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reads colour-measurement files")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
foreach(library RUNTIME KIT)
  set(CPACK_DEBIAN_${library}_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/triggers)
endforeach()
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/compress_pages.cmake)

set(about
    "measdata reads colour-measurement files (CGATS.17, ISO 28178, semicolon\n\
tables) and answers what they hold: patches, Lab from spectra, repeats,\n\
wedges, ink names, instrument."
)
configure_file(changelog.in changelog @ONLY)

# One package, with the licence and a list of changes where Debian looks for them.
macro(measdata_package component package section depends contents)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${about}\n.\nThis package holds ${contents}.")
  install(
    FILES ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    RENAME copyright
    COMPONENT ${component}
  )
  install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    COMPONENT ${component}
  )
endmacro()

set(same_version "(= ${PROJECT_VERSION})")
set(library libmeasdata${PROJECT_VERSION_MAJOR})
set(kit libmeaskit${PROJECT_VERSION_MAJOR})
measdata_package(runtime ${library} libs "" "the library")
measdata_package(
  development libmeasdata-dev libdevel "${library} ${same_version}"
  "what building against the library takes"
)
if(MEASDATA_KIT)
  measdata_package(
    kit ${kit} libs "${library} ${same_version}"
    "the kit, a library that repairs files and tells what it did"
  )
  measdata_package(
    kit_development libmeaskit-dev libdevel "${kit} ${same_version}, libmeasdata-dev ${same_version}"
    "what building against the kit takes"
  )
endif()
if(MEASDATA_TOOLS)
  measdata_package(
    tools measdata-tools graphics "${library} ${same_version}" "the programs measinfo, measreport, meascompare and measconvert"
  )
endif()
include(CPack)
