# Builds the outside project in one way and runs it.
# Call: cmake -DWAY=... -DPREFIX=... -DSOURCE=... -DWORK=... -DCC=... -DCXX=... -DGENERATOR=...
#   -P build_outside.cmake
set(outside ${SOURCE}/tests/packaging/outside)
set(program main.c)
set(package measdata)
set(chart cmyk-spectral-310.txt)
set(answer "^310 patches, read by [0-9]+[.][0-9]+[.][0-9]+\n$")
if(WAY MATCHES "kit$")
  set(program kit.c)
  set(package measkit)
  set(chart semicolon-table.csv)
  set(answer "^spreadsheet\nfield-names\n7 patches\n$")
endif()
# The objects of the library are built again only when they changed.
if(WAY STREQUAL "subdirectory")
  file(REMOVE ${WORK}/CMakeCache.txt ${WORK}/outside)
else()
  file(REMOVE_RECURSE ${WORK})
endif()
file(MAKE_DIRECTORY ${WORK})

function(run)
  execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(PREFIX)
  file(GLOB_RECURSE pc_file ${PREFIX}/*/measdata.pc)
  get_filename_component(pc_dir "${pc_file}" DIRECTORY)
  get_filename_component(lib_dir "${pc_dir}" DIRECTORY)
endif()

if(WAY MATCHES "^pkg-config")
  set(ENV{PKG_CONFIG_PATH} ${pc_dir})
  if(WAY MATCHES "static")
    set(static --static)
  endif()
  execute_process(
    COMMAND pkg-config ${static} --cflags --libs ${package}
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY
  )
  if(WAY MATCHES "static")
    string(REPLACE "-lmeasdata" "-l:libmeasdata.a" flags "${flags}")
  endif()
  separate_arguments(flags)
  run(${CC} ${outside}/${program} -o outside ${flags})
elseif(WAY STREQUAL "meson")
  file(COPY ${outside}/meson.build ${outside}/main.c DESTINATION ${WORK}/project)
  file(MAKE_DIRECTORY ${WORK}/project/subprojects)
  file(CREATE_LINK ${SOURCE} ${WORK}/project/subprojects/measdata SYMBOLIC)
  run(${CMAKE_COMMAND} -E env CC=${CC} CXX=${CXX} meson setup meson project)
  run(meson compile -C meson -j 2)
  file(CREATE_LINK ${WORK}/meson/outside ${WORK}/outside SYMBOLIC)
elseif(WAY STREQUAL "plain")
  run(${CC} -I${PREFIX}/include ${outside}/main.c -o outside -L${lib_dir} -lmeasdata)
  run(${CXX} -std=c++17 -fsyntax-only -include ${PREFIX}/include/measdata.hpp -x c++ /dev/null)
else()
  # A project around the library may compile as it likes: the library keeps to its own arithmetic,
  # or does not compile.
  set(flags "")
  if(WAY STREQUAL "subdirectory")
    set(flags "-ffast-math -funsafe-math-optimizations -ffinite-math-only -fno-exceptions")
  endif()
  run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${outside} -B . -DWAY=${WAY} -DPROGRAM=${program}
      -DMEASDATA_SOURCE=${SOURCE} -DCMAKE_PREFIX_PATH=${PREFIX} -DCMAKE_C_COMPILER=${CC}
      -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0
      -DCMAKE_CXX_FLAGS=${flags})
  run(${CMAKE_COMMAND} --build . --parallel 2)
endif()

set(ENV{LD_LIBRARY_PATH} ${lib_dir})
execute_process(
  COMMAND ${WORK}/outside ${SOURCE}/examples/data/${chart}
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY
)
if(NOT output MATCHES "${answer}")
  message(FATAL_ERROR "unexpected answer: ${output}")
endif()
message(STATUS "${output}")
