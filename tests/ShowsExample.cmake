# Fails unless the page <page> contains the file <example> whole.
file(READ "${page}" page_text)
file(READ "${example}" example_text)
string(FIND "${page_text}" "${example_text}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${page} does not show ${example} as it is; paste it anew")
endif()
