# Compiles a resource script into a target: for Windows with the cross compiler's tool, natively with
# llvm-rc, its output linked in as bytes and added to the stand-in's resources at start.
function(kpd_add_resources target script)
  get_filename_component(name ${script} NAME_WE)
  get_filename_component(file_name ${script} NAME)
  get_filename_component(folder ${script} DIRECTORY)
  # What the script includes is compiled in too.
  file(GLOB_RECURSE parts CONFIGURE_DEPENDS ${folder}/*.h ${folder}/*.rc ${folder}/*.bmp
                                            ${folder}/*.ico ${folder}/*.cur
                                            ${folder}/*.dib)
  list(APPEND parts ${KPD_GENERATED}/version.h)
  if(WIN32)
    set_source_files_properties(${script} PROPERTIES INCLUDE_DIRECTORIES "${folder};${KPD_GENERATED}"
                                                     OBJECT_DEPENDS "${parts}")
    target_sources(${target} PRIVATE ${script})
    return()
  endif()
  set(compiled ${CMAKE_CURRENT_BINARY_DIR}/${name}.res)
  set(carrier ${CMAKE_CURRENT_BINARY_DIR}/${name}_resources.cpp)
  add_custom_command(
    OUTPUT ${compiled}
    # The script by its bare name: a path that starts with an option's letter is taken for the option.
    COMMAND llvm-rc /C 65001 /I ${CMAKE_SOURCE_DIR}/platform/include
            /I ${KPD_GENERATED} /FO ${compiled} ${file_name}
    WORKING_DIRECTORY ${folder}
    DEPENDS ${script} ${parts})
  set(RESOURCE_FILE ${compiled})
  configure_file(${CMAKE_SOURCE_DIR}/cmake/resources.cpp.in ${carrier} @ONLY)
  set_source_files_properties(${carrier} PROPERTIES OBJECT_DEPENDS ${compiled})
  target_sources(${target} PRIVATE ${carrier})
endfunction()
