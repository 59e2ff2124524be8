# What every target of the project is compiled with.
add_library(korvane_options INTERFACE)
target_include_directories(korvane_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(korvane_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(KORVANE_WERROR)
  target_compile_options(korvane_options INTERFACE -Werror)
endif()
if(KORVANE_SANITIZE)
  set(sanitizers -fsanitize=${KORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(korvane_options INTERFACE ${sanitizers})
  target_link_options(korvane_options INTERFACE ${sanitizers})
endif()

# korvane_library(NAME SOURCES... ): one folder's static library.
function(korvane_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC korvane_options)
endfunction()
