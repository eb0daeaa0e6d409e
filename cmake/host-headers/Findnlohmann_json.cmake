# The headers of this machine for a compiler of another system, which must not see the folder where
# they are: it holds the headers of this machine's C library, too.
find_path(nlohmann_json_headers nlohmann/json.hpp NO_CMAKE_FIND_ROOT_PATH)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(nlohmann_json REQUIRED_VARS nlohmann_json_headers)
if(nlohmann_json_FOUND AND NOT TARGET nlohmann_json::nlohmann_json)
  set(folder ${PROJECT_BINARY_DIR}/host-headers)
  file(MAKE_DIRECTORY ${folder})
  file(CREATE_LINK ${nlohmann_json_headers}/nlohmann ${folder}/nlohmann SYMBOLIC)
  add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
  target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${folder})
endif()
