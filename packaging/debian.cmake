# The Debian packages libmeasdata1, libmeasdata-dev and measdata-tools, made by cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR measdata)
set(CPACK_PACKAGE_CONTACT "The measdata developers <measdata@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reads colour-measurement files")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/triggers)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/compress_pages.cmake)

set(about
    "measdata reads colour-measurement files (CGATS.17, ISO 28178, semicolon\n\
tables) and answers what they hold: patches, Lab from spectra, repeats,\n\
wedges, ink names, instrument."
)
set(library libmeasdata${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${about}\n.\nThis package holds the library.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmeasdata-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "${about}\n.\nThis package holds what building against the library takes."
)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME measdata-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "${about}\n.\nThis package holds the programs measinfo and measreport.")

# Each package with the licence and a list of changes where Debian looks for them.
configure_file(changelog.in changelog @ONLY)
foreach(component_package runtime:${library} development:libmeasdata-dev tools:measdata-tools)
  string(REPLACE ":" ";" pair ${component_package})
  list(GET pair 0 component)
  list(GET pair 1 package)
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
endforeach()
include(CPack)
