# orvex_generate(TARGET <target> SCHEMAS <files...> [NAMESPACE <name>] [OPTIONS <orvex-xsd options...>]
#                [OUTPUT_DIR <dir>] [OUT_VAR <variable>])
#
# Compiles the schemas with orvex-xsd into <dir> (default: orvex_generated/<target> in the
# current binary directory), adds the generated sources to the target and the directory to
# its include path. The generated files are known when the project is configured: orvex-xsd
# lists them then, and a change of any schema document read configures again, so a schema
# change that adds or removes a class is followed. The target links OrvexXml::orvexxml itself.
# OUT_VAR receives the list of generated files.
function(orvex_generate)
  cmake_parse_arguments(arg "" "TARGET;NAMESPACE;OUTPUT_DIR;OUT_VAR" "SCHEMAS;OPTIONS" ${ARGN})
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvex_generate: unknown arguments: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_TARGET OR NOT TARGET ${arg_TARGET})
    message(FATAL_ERROR "orvex_generate: TARGET must name an existing target")
  endif()
  if(NOT arg_SCHEMAS)
    message(FATAL_ERROR "orvex_generate: no SCHEMAS given")
  endif()

  # The compiler that the build runs, and one that runs now to list the files.
  if(TARGET orvex-xsd)
    set(build_tool $<TARGET_FILE:orvex-xsd>)
    set(build_depends orvex-xsd)
    set(list_tool ${ORVEX_XSD_HOST_EXECUTABLE})
  elseif(TARGET OrvexXml::orvex-xsd)
    set(build_tool $<TARGET_FILE:OrvexXml::orvex-xsd>)
    set(build_depends OrvexXml::orvex-xsd)
    get_target_property(list_tool OrvexXml::orvex-xsd LOCATION)
  else()
    message(FATAL_ERROR "orvex_generate: orvex-xsd is not available (build the runtime with ORVEXXML_BUILD_TOOLS)")
  endif()
  if(NOT list_tool OR NOT EXISTS "${list_tool}")
    message(FATAL_ERROR "orvex_generate: the schema compiler ${list_tool} can't be run now")
  endif()

  if(arg_OUTPUT_DIR)
    get_filename_component(out_dir "${arg_OUTPUT_DIR}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})
  else()
    set(out_dir ${CMAKE_CURRENT_BINARY_DIR}/orvex_generated/${arg_TARGET})
  endif()
  set(schemas)
  foreach(schema ${arg_SCHEMAS})
    get_filename_component(schema "${schema}" ABSOLUTE)
    list(APPEND schemas ${schema})
  endforeach()
  set(args -o ${out_dir})
  if(arg_NAMESPACE)
    list(APPEND args --namespace ${arg_NAMESPACE})
  endif()
  list(APPEND args ${arg_OPTIONS} ${schemas})

  execute_process(COMMAND ${list_tool} --list-outputs ${args}
    RESULT_VARIABLE rc OUTPUT_VARIABLE listing ERROR_VARIABLE errors)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "orvex_generate: orvex-xsd failed on ${arg_SCHEMAS}:\n${errors}")
  endif()
  string(REPLACE "\n" ";" lines "${listing}")
  set(outputs)
  set(inputs)
  foreach(line ${lines})
    if(line MATCHES "^output (.+)$")
      list(APPEND outputs ${out_dir}/${CMAKE_MATCH_1})
    elseif(line MATCHES "^input (.+)$")
      list(APPEND inputs ${CMAKE_MATCH_1})
    endif()
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${inputs})

  list(JOIN arg_SCHEMAS " " schema_names)
  add_custom_command(OUTPUT ${outputs}
    COMMAND ${build_tool} ${args}
    DEPENDS ${inputs} ${build_depends}
    COMMENT "Compiling ${schema_names} with orvex-xsd"
    VERBATIM)
  target_sources(${arg_TARGET} PRIVATE ${outputs})
  target_include_directories(${arg_TARGET} PUBLIC $<BUILD_INTERFACE:${out_dir}>)
  if(arg_OUT_VAR)
    set(${arg_OUT_VAR} ${outputs} PARENT_SCOPE)
  endif()
endfunction()
