# What a compiler must be able to do. The oldest that were tried:
# g++ 12, clang 14 with the library of g++ 12, clang 16 with libc++ 16.
include(CheckCXXSourceCompiles)

set(known_g++ 12)
set(known_clang++ 14)
set(compiler "")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(compiler g++)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  set(compiler clang++)
endif()
if(compiler AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS known_${compiler})
  message(FATAL_ERROR "measdata needs ${compiler} ${known_${compiler}} or later, "
                      "not ${CMAKE_CXX_COMPILER_VERSION}"
  )
endif()

# Older versions of libc++ lack algorithms on ranges.
check_cxx_source_compiles(
  "#include <version>
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 16000
#error
#endif
int main() {}"
  MEASDATA_HAS_RANGES
)
if(NOT MEASDATA_HAS_RANGES)
  message(FATAL_ERROR "measdata needs libc++ 16 or later")
endif()

# Processors of the i386 family count in a wider format unless they are told to use SSE2, which all
# of them have since 2001. Older ones are not supported.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT MSVC)
  check_cxx_source_compiles(
    "#if defined(__i386__) && !defined(__SSE2_MATH__)
#error
#endif
int main() {}"
    MEASDATA_COUNTS_IN_DOUBLES
  )
  if(NOT MEASDATA_COUNTS_IN_DOUBLES)
    target_compile_options(measdata_options INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()
