# flitmark_reflect(TARGET target MODULE_NAME name PACKAGE /Script/name [API name_API] HEADERS file... [USES file...])
# Runs the header tool on a module's headers at build time, adds its output to the target (call this in the folder that
# declares the target), and lets the target's users include the generated headers. USES: headers of other modules that
# these refer to.
function(flitmark_reflect)
	cmake_parse_arguments(Arg "" "TARGET;MODULE_NAME;PACKAGE;API" "HEADERS;USES" ${ARGN})
	set(Folder ${CMAKE_CURRENT_BINARY_DIR}/${Arg_TARGET}Generated)
	file(MAKE_DIRECTORY ${Folder})
	set(Written "")
	set(Sources "")
	foreach(Header IN LISTS Arg_HEADERS)
		cmake_path(GET Header STEM LAST_ONLY Stem)
		list(APPEND Written ${Folder}/${Stem}.generated.h)
		list(APPEND Sources ${Folder}/${Stem}.gen.cpp)
	endforeach()
	list(TRANSFORM Arg_USES PREPEND "--uses;" OUTPUT_VARIABLE Uses)
	# The tool leaves unchanged files alone, so only the stamp is always new.
	add_custom_command(
		OUTPUT ${Folder}/Reflected.stamp
		BYPRODUCTS ${Written} ${Sources}
		COMMAND FlitmarkHeaderTool --module ${Arg_MODULE_NAME} --package ${Arg_PACKAGE} --api "${Arg_API}" --output ${Folder}
			${Uses} ${Arg_HEADERS}
		COMMAND ${CMAKE_COMMAND} -E touch ${Folder}/Reflected.stamp
		DEPENDS FlitmarkHeaderTool ${Arg_HEADERS} ${Arg_USES}
		WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
		COMMENT "Reading the reflection macros in ${Arg_MODULE_NAME}'s headers"
		VERBATIM)
	target_sources(${Arg_TARGET} PRIVATE ${Folder}/Reflected.stamp ${Sources})
	target_include_directories(${Arg_TARGET} PUBLIC ${Folder})
endfunction()
