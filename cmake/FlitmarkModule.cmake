# The modules, built from the same files as in the engine. Their folders contain none of our build files.
include(FlitmarkReflect)

# Where the two modules that ship are read from: here, or out of an unpacked package.
set(FLITMARK_MODULE_SOURCE_DIR ${CMAKE_SOURCE_DIR}/Source CACHE PATH "The folder with Flitmark and FlitmarkWidgets")

# flitmark_module(NAME TARGET target HEADERS stem... SOURCES file... [USES module-target...] [FOLDER dir] [PRIVATE_HEADERS])
# FOLDER/NAME (FLITMARK_MODULE_SOURCE_DIR without it) as the shared library UnrealEditor-NAME. Each header, public unless
# they are private, has a source of its name; SOURCES are those beyond.
# USES: other modules that it stands on.
function(flitmark_module Name)
	cmake_parse_arguments(Arg "PRIVATE_HEADERS" "TARGET;FOLDER" "HEADERS;SOURCES;USES" ${ARGN})
	if(NOT Arg_FOLDER)
		set(Arg_FOLDER ${FLITMARK_MODULE_SOURCE_DIR})
	endif()
	set(Dir ${Arg_FOLDER}/${Name})
	set(HeaderDir ${Dir}/Public)
	set(PublicDir ${Dir}/Public)
	if(Arg_PRIVATE_HEADERS)
		set(HeaderDir ${Dir}/Private)
		set(PublicDir "")
	endif()
	list(TRANSFORM Arg_HEADERS REPLACE "(.+)" "${Dir}/Private/\\1.cpp" OUTPUT_VARIABLE Sources)
	list(TRANSFORM Arg_HEADERS REPLACE "(.+)" "${HeaderDir}/\\1.h" OUTPUT_VARIABLE Headers)
	list(TRANSFORM Arg_SOURCES PREPEND ${Dir}/Private/)
	flitmark_library(${Arg_TARGET} SHARED
		SOURCES ${Sources} ${Arg_SOURCES}
		INCLUDE ${PublicDir}
		PRIVATE_INCLUDE ${Dir}/Private
		LINK EngineLayer ${Arg_USES}
		HIDDEN)
	set_target_properties(${Arg_TARGET} PROPERTIES
		OUTPUT_NAME UnrealEditor-${Name}
		INSTALL_RPATH $ORIGIN)
	string(TOUPPER ${Name}_API Api)
	target_compile_definitions(${Arg_TARGET} PRIVATE ${Api}=DLLEXPORT INTERFACE ${Api}=DLLIMPORT)
	# A unique symbol would keep the library mapped after it is unloaded.
	target_compile_options(${Arg_TARGET} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
	flitmark_module_checks(${Arg_TARGET})
	set(UsedHeaders "")
	foreach(Used IN LISTS Arg_USES)
		get_property(Each TARGET ${Used} PROPERTY FLITMARK_MODULE_HEADERS)
		list(APPEND UsedHeaders ${Each})
	endforeach()
	set_property(TARGET ${Arg_TARGET} PROPERTY FLITMARK_MODULE_HEADERS ${UsedHeaders} ${Headers})
	flitmark_reflect(TARGET ${Arg_TARGET} MODULE_NAME ${Name} PACKAGE /Script/${Name} API ${Api}
		HEADERS ${Headers} USES ${UsedHeaders})
endfunction()

flitmark_module(Flitmark TARGET FlitmarkModule
	HEADERS DanmakuDataStruct DanmakuSave DanmakuTrack DanmakuTrackManager UI_Danmaku UI_DanmakuBar UI_DanmakuNode
		UI_DanmakuNodeSetting
	SOURCES FlitmarkModule.cpp)
flitmark_module(FlitmarkWidgets TARGET FlitmarkWidgetsModule
	HEADERS FlitmarkBar FlitmarkComment FlitmarkCommentMode FlitmarkOverlay FlitmarkPanel FlitmarkPlayer
		FlitmarkViewerComment
	SOURCES FlitmarkWidgetsModule.cpp WidgetMaking.cpp
	USES FlitmarkModule)
