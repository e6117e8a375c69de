# The module itself, out of the very files that the engine builds. No build file of ours lies in its folder.
include(FlitmarkReflect)

set(ModuleDir ${CMAKE_SOURCE_DIR}/Source/Flitmark)
set(ModuleHeaders DanmakuDataStruct DanmakuSave DanmakuTrack DanmakuTrackManager UI_Danmaku UI_DanmakuBar UI_DanmakuNode
	UI_DanmakuNodeSetting)
list(TRANSFORM ModuleHeaders REPLACE "(.+)" "${ModuleDir}/Private/\\1.cpp" OUTPUT_VARIABLE ModuleSources)
list(TRANSFORM ModuleHeaders REPLACE "(.+)" "${ModuleDir}/Public/\\1.h")

flitmark_library(FlitmarkModule SHARED
	SOURCES ${ModuleSources} ${ModuleDir}/Private/FlitmarkModule.cpp
	INCLUDE ${ModuleDir}/Public
	PRIVATE_INCLUDE ${ModuleDir}/Private
	LINK EngineLayer)
set_target_properties(FlitmarkModule PROPERTIES
	OUTPUT_NAME UnrealEditor-Flitmark
	CXX_VISIBILITY_PRESET hidden
	VISIBILITY_INLINES_HIDDEN ON)
target_compile_definitions(FlitmarkModule PRIVATE FLITMARK_API=DLLEXPORT INTERFACE FLITMARK_API=DLLIMPORT)
# A unique symbol would keep the library mapped after it is unloaded.
target_compile_options(FlitmarkModule PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
flitmark_module_checks(FlitmarkModule)
flitmark_reflect(TARGET FlitmarkModule MODULE_NAME Flitmark PACKAGE /Script/Flitmark API FLITMARK_API
	HEADERS ${ModuleHeaders})
