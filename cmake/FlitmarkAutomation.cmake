# flitmark_automation_tests(RUNNER): ctest runs each automation test that the runner lists, under its own name.
function(flitmark_automation_tests Runner)
	set(Listed ${CMAKE_CURRENT_BINARY_DIR}/${Runner}.cmake)
	if(NOT EXISTS ${Listed})
		file(WRITE ${Listed} "add_test(${Runner}_NOT_BUILT ${Runner}_NOT_BUILT)\n")
	endif()
	add_custom_command(TARGET ${Runner} POST_BUILD
		COMMAND ${CMAKE_COMMAND} -D Runner=$<TARGET_FILE:${Runner}> -D Listed=${Listed}
			-P ${CMAKE_SOURCE_DIR}/cmake/ListAutomationTests.cmake
		VERBATIM)
	set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${Listed})
endfunction()
