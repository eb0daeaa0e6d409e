# Checks that a page shows a whole sample. Call: cmake -DPAGE=file -DSAMPLE=file -P check_shown.cmake
file(READ ${PAGE} page)
file(READ ${SAMPLE} sample)
string(FIND "${page}" "```c\n${sample}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${PAGE} does not show ${SAMPLE}")
endif()
