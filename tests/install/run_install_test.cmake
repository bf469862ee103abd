# Installs the built library into a scratch prefix, then configures, builds and runs a
# separate project that finds it with find_package(OrvexXml) and with pkg-config.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "command failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

foreach(f include/orvexxml/orvexxml.h include/orvexxml/binding/xmlgeneratedclass.h
          include/orvexxml/writers/xmltextwriter.h lib/cmake/OrvexXml/OrvexXmlConfig.cmake
          lib/pkgconfig/orvexxml.pc)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "missing after install: ${f}")
  endif()
endforeach()

# The headers that the umbrella header doesn't reach belong to the implementation.
foreach(f include/orvexxml/xml/xmlnodestore.h include/orvexxml/xml/expatreader.h
          include/orvexxml/infrastructure/codepage.h include/orvexxml/infrastructure/utf8.h)
  if(EXISTS ${prefix}/${f})
    message(FATAL_ERROR "internal header installed: ${f}")
  endif()
endforeach()

# A shared library is named by major and minor version, which generated code must match.
if(EXISTS ${prefix}/lib/liborvexxml.so)
  if(NOT EXISTS ${prefix}/lib/liborvexxml.so.16.1)
    message(FATAL_ERROR "liborvexxml.so.16.1 missing after install")
  endif()
  find_program(READELF readelf)
  if(READELF)
    run(${READELF} -d ${prefix}/lib/liborvexxml.so)
    if(NOT last_output MATCHES "Library soname: \\[liborvexxml\\.so\\.16\\.1\\]")
      message(FATAL_ERROR "unexpected soname:\n${last_output}")
    endif()
  endif()
endif()

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/version -B ${WORK_DIR}/version -G ${CMAKE_GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix})

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/consumer -B ${WORK_DIR}/consumer -G ${CMAKE_GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/consumer)
set(expected "<?xml version=\"1.0\"?>\n<Greeting>\n\t<Text>hello &amp; welcome</Text>\n</Greeting>\n")
if(NOT last_output STREQUAL expected)
  message(FATAL_ERROR "consumer printed:\n${last_output}\nexpected:\n${expected}")
endif()

# The same program built by hand with the flags that pkg-config gives.
run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${prefix}/lib/pkgconfig pkg-config --cflags --libs orvexxml)
string(STRIP "${last_output}" pc_flags)
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
run(c++ -std=c++17 ${SOURCE_DIR}/tests/install/consumer/main.cpp ${pc_flags} -Wl,-rpath,${prefix}/lib
    -o ${WORK_DIR}/consumer_pc)
run(${WORK_DIR}/consumer_pc)
if(NOT last_output STREQUAL expected)
  message(FATAL_ERROR "pkg-config consumer printed:\n${last_output}")
endif()
# A project that compiles a schema with the installed orvex-xsd: its classes read and write,
# and a change of the schema is followed by the next build.
if(WITH_TOOLS)
  if(NOT EXISTS ${prefix}/bin/orvex-xsd)
    message(FATAL_ERROR "orvex-xsd missing after install")
  endif()
  file(COPY ${SOURCE_DIR}/tests/install/generated/ DESTINATION ${WORK_DIR}/generated_src)
  run(${CMAKE_COMMAND} -S ${WORK_DIR}/generated_src -B ${WORK_DIR}/generated -G ${CMAKE_GENERATOR}
      -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/generated)
  run(${WORK_DIR}/generated/greeter)
  set(expected "<?xml version=\"1.0\"?>\n<AA:greeting xmlns:AA=\"urn:example:greetings\">\n\t<AA:text>hello &amp; welcome</AA:text>\n</AA:greeting>\n")
  if(NOT last_output STREQUAL expected)
    message(FATAL_ERROR "generated consumer printed:\n${last_output}\nexpected:\n${expected}")
  endif()
  # The element text becomes optional and gains a sibling: the build regenerates the classes.
  file(READ ${WORK_DIR}/generated_src/greeting.xsd schema)
  string(REPLACE "<xs:element name=\"text\" type=\"xs:string\"/>"
                 "<xs:element name=\"text\" type=\"xs:string\"/><xs:element name=\"to\" type=\"xs:string\" minOccurs=\"0\"/>"
                 schema "${schema}")
  file(WRITE ${WORK_DIR}/generated_src/greeting.xsd "${schema}")
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/generated)
  if(NOT EXISTS ${WORK_DIR}/generated/orvex_generated/greeter/greeting.h)
    message(FATAL_ERROR "orvex_generate wrote no greeting.h")
  endif()
  file(READ ${WORK_DIR}/generated/orvex_generated/greeter/greeting.h header)
  if(NOT header MATCHES "IsValidTo")
    message(FATAL_ERROR "the changed schema was not compiled again:\n${header}")
  endif()
endif()
message(STATUS "install test passed")
