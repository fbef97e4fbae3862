# ma_common_add_subsystem(SOURCES <files...>)
# Adds one subsystem to the library: its sources (relative to the calling
# folder) and its public header folder `include/`, which is also installed.
function(ma_common_add_subsystem)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  target_sources(ma-common-objects PRIVATE ${ARG_SOURCES})
  set(include_dir "${CMAKE_CURRENT_SOURCE_DIR}/include")
  target_include_directories(ma-common-objects PUBLIC "${include_dir}")
  target_include_directories(ma-common PUBLIC "$<BUILD_INTERFACE:${include_dir}>")
  if(MA_COMMON_INSTALL)
    install(DIRECTORY "${include_dir}/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  endif()
endfunction()
