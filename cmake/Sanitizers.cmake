# Sanitizers are a property of the whole build: a mixed one reports false alarms.
if(TOLVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
