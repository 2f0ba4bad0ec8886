# ravelton_library(folder DEPENDS lower...): a static library rv_<folder>
# from every .cpp in the folder, linked to the libraries named below it (see
# Layers.cmake for the order). All libraries share the project root as
# include path, so headers are named by folder: #include "core/game.h".
function(ravelton_library folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  add_library(rv_${folder} STATIC ${sources})
  target_include_directories(rv_${folder} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(rv_${folder} PUBLIC fmt::fmt)
  foreach(dep IN LISTS ARG_DEPENDS)
    list(FIND RAVELTON_LAYERS ${folder} own_rank)
    list(FIND RAVELTON_LAYERS ${dep} dep_rank)
    if(dep_rank EQUAL -1 OR NOT dep_rank LESS own_rank)
      message(FATAL_ERROR "rv_${folder} may link only libraries below it, not rv_${dep}")
    endif()
    target_link_libraries(rv_${folder} PUBLIC rv_${dep})
  endforeach()
endfunction()
