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

# Hardening that a packager's flags do not bring already. The sanitizers have checks of their own.
# -fPIE is for programs and what is linked into them; a module has its -fPIC.
if(NOT KORVANE_SANITIZE)
  set(is_module $<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>)
  target_compile_options(korvane_options INTERFACE
    -fstack-protector-strong $<$<NOT:${is_module}>:-fPIE>)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86|aarch64")
    target_compile_options(korvane_options INTERFACE -fstack-clash-protection)
  endif()
  if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
    target_compile_options(korvane_options INTERFACE
      $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
  endif()
  target_link_options(korvane_options INTERFACE
    $<$<NOT:${is_module}>:-pie> -Wl,-z,relro -Wl,-z,now)
endif()

# korvane_library(NAME SOURCES... ): one folder's static library.
function(korvane_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC korvane_options)
endfunction()
