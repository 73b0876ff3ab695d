# Most of what a source costs is the headers that it reads. So the sources of a folder are compiled
# together, some of them at a time; names in their unnamed namespaces have to differ. Without this
# each source stands alone, which shows a missing include.
option(QUILLET_GROUPS "Compile several sources of a folder together" ON)
set(QUILLET_GROUP_SIZE 10)

# Puts into the variable what is to be compiled for these sources: a file for each group, which
# includes its sources by relative paths, so that the compiler's cache serves every clone.
function(quillet_grouped result)
  if(NOT QUILLET_GROUPS)
    set(${result} ${ARGN} PARENT_SCOPE)
    return()
  endif()
  set(files "")
  foreach(source ${ARGN})
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE path)
    cmake_path(GET path PARENT_PATH folder)
    math(EXPR group "0${count_${folder}} / ${QUILLET_GROUP_SIZE}")
    math(EXPR count_${folder} "0${count_${folder}} + 1")
    set(file ${PROJECT_BINARY_DIR}/groups/${folder}/group_${group}.cpp)
    cmake_path(GET file PARENT_PATH place)
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${place})
    string(APPEND text_${file} "#include \"${source}\"\n")
    list(APPEND files ${file})
  endforeach()
  list(REMOVE_DUPLICATES files)
  foreach(file ${files})
    file(CONFIGURE OUTPUT ${file} CONTENT "${text_${file}}" @ONLY)
  endforeach()
  set(${result} ${files} PARENT_SCOPE)
endfunction()
