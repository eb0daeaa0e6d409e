# Debian wants manual pages and lists of changes compressed. cpack runs this on what it packs.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*)
list(FILTER pages INCLUDE REGEX "/(man1/.*[.]1|changelog)$")
execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)
