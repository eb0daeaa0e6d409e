# Looks for a sample, whole, in a page. Call: cmake -DPAGE=file -DSAMPLE=file -P check_shown.cmake
file(READ ${PAGE} page)
file(READ ${SAMPLE} sample)
string(FIND "${page}" "```c\n${sample}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${PAGE} does not show ${SAMPLE}")
endif()
