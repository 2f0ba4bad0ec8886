# ravelton_library(folder): a static library rv_<folder> from every .cpp in
# the folder. A folder with no sources yet gets no library. All libraries
# share the project root as include path, so headers are named by folder:
# #include "engine/game.h".
set(RAVELTON_LIBRARIES "" CACHE INTERNAL "")

function(ravelton_library folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_library(rv_${folder} STATIC ${sources})
  target_include_directories(rv_${folder} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(rv_${folder} PUBLIC fmt::fmt)
  set(RAVELTON_LIBRARIES ${RAVELTON_LIBRARIES} rv_${folder} CACHE INTERNAL "")
endfunction()

# ravelton_link_all(): every engine library linked to every other, then one
# interface target, ravelton_core, for the programs and tests to link.
function(ravelton_link_all)
  foreach(lib IN LISTS RAVELTON_LIBRARIES)
    foreach(other IN LISTS RAVELTON_LIBRARIES)
      if(NOT lib STREQUAL other)
        target_link_libraries(${lib} PUBLIC ${other})
      endif()
    endforeach()
  endforeach()
  add_library(ravelton_core INTERFACE)
  target_link_libraries(ravelton_core INTERFACE ${RAVELTON_LIBRARIES})
  set_target_properties(${RAVELTON_LIBRARIES} PROPERTIES LINK_INTERFACE_MULTIPLICITY 3)
endfunction()
