# What the windows preset has built, run under Wine. ./test builds it first; a test whose file is
# missing fails and says so.
#
#   windows_test(NAME FILE [SECONDS n] [BESIDE_SUITE] [REGISTER library...] [ARGUMENTS argument...])
#
# FILE is a program that the windows preset builds from tests/windows, "home.exe", or a script for
# Wine's script host, "home.vbs". A library is named as it stands in the build folder,
# "windows/PrjQuillet.dll", and is registered before. Each test has a prefix and a display of its
# own, so that they run beside each other. BESIDE_SUITE gives it the suite's objects on a copy of the
# sample practice.
set(windows_build ${PROJECT_SOURCE_DIR}/build/windows)
set(windows_tests ${PROJECT_SOURCE_DIR}/tests/windows)
set(wine_prefix ${PROJECT_BINARY_DIR}/tests/wine/prefix)

add_test(NAME windows.prefix COMMAND ${windows_tests}/prefix ${wine_prefix})
set_tests_properties(windows.prefix PROPERTIES
  FIXTURES_SETUP wine_prefix LABELS windows TIMEOUT 120)

function(windows_test name file)
  cmake_parse_arguments(PARSE_ARGV 2 it "BESIDE_SUITE" "SECONDS" "REGISTER;ARGUMENTS")
  if(NOT it_SECONDS)
    set(it_SECONDS 120)
  endif()
  set(options --seconds ${it_SECONDS})
  set(fixtures wine_prefix)
  set(beside)
  if(it_BESIDE_SUITE)
    list(APPEND it_REGISTER tests/windows/quillet_test_suite.dll)
    list(APPEND fixtures sample_practice)
    set(beside ${windows_tests}/beside_suite $<TARGET_FILE:suite_server> $<TARGET_FILE:quillet>
               ${CMAKE_CURRENT_BINARY_DIR}/script/sample)
  endif()
  foreach(library ${it_REGISTER})
    list(APPEND options --register ${windows_build}/${library})
  endforeach()
  if(file MATCHES "\\.vbs$")
    set(file ${windows_tests}/${file})
  else()
    set(file ${windows_build}/tests/windows/${file})
  endif()
  add_test(NAME windows.${name}
           COMMAND ${beside} ${windows_tests}/run ${wine_prefix} ${options} ${file} ${it_ARGUMENTS})
  # The runner keeps the time limit and cleans up; ctest's is for the runner itself.
  math(EXPR limit "${it_SECONDS} + 90")
  set_tests_properties(windows.${name} PROPERTIES
    FIXTURES_REQUIRED "${fixtures}" LABELS windows TIMEOUT ${limit})
endfunction()

# The suite beside a program under Wine: its real service object and database, over a port of this
# machine.
file(GLOB sources CONFIGURE_DEPENDS ${windows_tests}/server/*.cpp ${windows_tests}/wire/*.cpp)
quillet_grouped(files ${sources})
add_executable(suite_server ${files})
target_include_directories(suite_server PRIVATE ${windows_tests})
target_link_libraries(suite_server PRIVATE quillet_suite)

windows_test(suite suite.vbs BESIDE_SUITE)

windows_test(ports ports_test.exe REGISTER tests/windows/quillet_test_served.dll)
windows_test(served served.vbs
             REGISTER windows/PrjQuillet.dll tests/windows/quillet_test_served.dll)
windows_test(frames frames_test.exe)
windows_test(vtxt vtxt_test.exe
             REGISTER windows/PrjQuillet.dll tests/windows/quillet_test_served.dll)
windows_test(views views_test.exe)
windows_test(component component_test.exe SECONDS 180
             REGISTER windows/PrjQuillet.dll tests/windows/quillet_test_served.dll)
windows_test(registration registration_test.exe)
windows_test(macro journey/macro.vbs BESIDE_SUITE REGISTER windows/PrjQuillet.dll)
windows_test(class component/forms_class.vbs BESIDE_SUITE REGISTER windows/PrjQuillet.dll)

# Journeys by keys, on the component's windows and on the forms themselves: the records of both are
# the same.
function(windows_journey name steps labels)
  add_test(NAME windows.journey.${name}
           COMMAND ${windows_tests}/journey/same $<TARGET_FILE:quillet> $<TARGET_FILE:suite_server>
                   ${CMAKE_CURRENT_BINARY_DIR}/script/sample ${steps}
                   ${PROJECT_BINARY_DIR}/tests/wine/${name}
                   ${windows_tests}/run ${wine_prefix} --seconds 300
                   --register ${windows_build}/windows/PrjQuillet.dll
                   --register ${windows_build}/tests/windows/quillet_test_suite.dll
                   ${windows_build}/tests/windows/journey.exe)
  set_tests_properties(windows.journey.${name} PROPERTIES
    FIXTURES_REQUIRED "wine_prefix;sample_practice" LABELS "${labels}" TIMEOUT 400)
endfunction()

# A day's work; every form once, whose pictures stay in the build folder.
foreach(name day forms)
  windows_journey(${name} ${windows_tests}/journey/${name}.steps windows)
endforeach()

# Keys as they fall, begun on each form.
foreach(seed RANGE 1 8)
  set(steps ${CMAKE_CURRENT_BINARY_DIR}/random.${seed}.steps)
  execute_process(COMMAND ${Python3_EXECUTABLE} ${windows_tests}/journey/random.py ${seed} 150
                  OUTPUT_FILE ${steps} COMMAND_ERROR_IS_FATAL ANY)
  windows_journey(random.${seed} ${steps} "windows;long")
endforeach()
