# Compiler flags that every target carries through vp_options.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON) # the rooms go into a program and a module

add_library(vp_options INTERFACE)
target_compile_options(
  vp_options
  INTERFACE -ffp-contract=off # fused a*b+c would make results differ between machines
            -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wdouble-promotion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual)
target_include_directories(vp_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

# Not for the Qt skin: the toolkit's own types convert too freely.
add_library(vp_strict INTERFACE)
target_link_libraries(vp_strict INTERFACE vp_options)
target_compile_options(vp_strict INTERFACE -Wconversion -Wsign-conversion)

option(VISTAPLOT_WERROR "Treat warnings as errors" OFF)
if(VISTAPLOT_WERROR)
  target_compile_options(vp_options INTERFACE -Werror)
endif()

option(VISTAPLOT_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
if(VISTAPLOT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(VISTAPLOT_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
