# Every target is declared with these helpers, so that flags and include rules are defined once.

add_library(FlitmarkFlags INTERFACE)
target_compile_features(FlitmarkFlags INTERFACE cxx_std_20)
# Everywhere, because a precompiled header and its users must agree about threads.
target_compile_options(FlitmarkFlags INTERFACE -pthread)
target_link_options(FlitmarkFlags INTERFACE -pthread)
# Floats are behavior: no contraction, so that every compiler produces the same bits.
target_compile_options(FlitmarkFlags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror -ffp-contract=off)
# gcc 12 reports false overlaps in inlined string concatenation.
target_compile_options(FlitmarkFlags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

if(FlitmarkHardened)
	target_compile_options(FlitmarkFlags INTERFACE -fstack-protector-strong)
	# Checks of buffers' sizes need the optimizer, which tests and merged units go without.
	target_compile_options(FlitmarkFlags INTERFACE
		"$<$<NOT:$<BOOL:$<TARGET_PROPERTY:FLITMARK_UNOPTIMIZED>>>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>")
endif()

# flitmark_precompiled(NAME KIND HEADER [LINK target...]): a header of cmake/Precompiled, parsed once for all targets that call
# target_precompile_headers(TARGET REUSE_FROM NAME). They must be of that kind (LIBRARY or TEST), and compiled with the same
# options.
function(flitmark_precompiled Name Kind Header)
	cmake_parse_arguments(Arg "" "" "LINK" ${ARGN})
	set(Source ${CMAKE_BINARY_DIR}/Precompiled/${Name}.cpp)
	file(CONFIGURE OUTPUT ${Source} CONTENT "// Only for its headers.\nint main()\n{\n}\n" @ONLY)
	if(Kind STREQUAL TEST)
		add_executable(${Name} EXCLUDE_FROM_ALL ${Source})
		target_compile_options(${Name} PRIVATE -O0)
		set_target_properties(${Name} PROPERTIES FLITMARK_UNOPTIMIZED ON)
	else()
		add_library(${Name} OBJECT ${Source})
		set_target_properties(${Name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
	endif()
	target_link_libraries(${Name} PRIVATE FlitmarkFlags ${Arg_LINK})
	target_precompile_headers(${Name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/Precompiled/${Header}.h)
endfunction()

if(FLITMARK_PRECOMPILE)
	flitmark_precompiled(FlitmarkHeaders LIBRARY Standard)
	flitmark_precompiled(FlitmarkHiddenHeaders LIBRARY Standard)
	set_target_properties(FlitmarkHiddenHeaders PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endif()
if(FLITMARK_TESTS)
	flitmark_precompiled(FlitmarkTestHeaders TEST Tests LINK GTest::gmock)
endif()

# flitmark_library(NAME STATIC|SHARED|OBJECT SOURCES file... [INCLUDE dir...] [PRIVATE_INCLUDE dir...]
#                  [LINK target...] [PRIVATE_LINK target...] [HIDDEN] [PRECOMPILED name])
# INCLUDE and LINK also apply to users of the library. HIDDEN: symbols are visible outside only where marked.
# PRECOMPILED: a flitmark_precompiled of its own, used where FLITMARK_PRECOMPILE is on.
function(flitmark_library Name Kind)
	cmake_parse_arguments(Arg "HIDDEN" "PRECOMPILED" "SOURCES;INCLUDE;PRIVATE_INCLUDE;LINK;PRIVATE_LINK" ${ARGN})
	add_library(${Name} ${Kind} ${Arg_SOURCES})
	target_include_directories(${Name} PUBLIC ${Arg_INCLUDE} PRIVATE ${Arg_PRIVATE_INCLUDE})
	target_link_libraries(${Name} PUBLIC ${Arg_LINK} PRIVATE FlitmarkFlags ${Arg_PRIVATE_LINK})
	set_target_properties(${Name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
	if(Arg_HIDDEN)
		set_target_properties(${Name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
		set(Arg_PRECOMPILED FlitmarkHiddenHeaders)
	elseif(NOT Arg_PRECOMPILED)
		set(Arg_PRECOMPILED FlitmarkHeaders)
	endif()
	if(FLITMARK_PRECOMPILE)
		target_precompile_headers(${Name} REUSE_FROM ${Arg_PRECOMPILED})
	endif()
endfunction()

# flitmark_module_checks(TARGET): compiles a module the way the engine's build does: all its sources merged into one unit,
# where their unnamed namespaces meet, besides each one alone; and with the warnings that are errors there but not here.
# Call it in the folder that declares the target, before generated sources are added.
function(flitmark_module_checks Target)
	set(Warnings -Wundef -Wdelete-non-virtual-dtor
		$<$<CXX_COMPILER_ID:Clang>:-Wshadow-uncaptured-local -Winconsistent-missing-override -Wenum-conversion>)
	get_target_property(Sources ${Target} SOURCES)
	add_library(${Target}Merged OBJECT ${Sources})
	set_target_properties(${Target}Merged PROPERTIES
		UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0 FLITMARK_UNOPTIMIZED ON)
	target_link_libraries(${Target}Merged PRIVATE ${Target} FlitmarkFlags)
	target_compile_options(${Target}Merged PRIVATE ${Warnings} -O0 -g0)
	target_compile_options(${Target} PRIVATE ${Warnings})
endfunction()

# flitmark_program(NAME SOURCES file... [INCLUDE dir...] [LINK target...])
function(flitmark_program Name)
	cmake_parse_arguments(Arg "" "" "SOURCES;INCLUDE;LINK" ${ARGN})
	add_executable(${Name} ${Arg_SOURCES})
	target_include_directories(${Name} PRIVATE ${Arg_INCLUDE})
	target_link_libraries(${Name} PRIVATE FlitmarkFlags ${Arg_LINK})
endfunction()

# flitmark_test(NAME SOURCES file... [INCLUDE dir...] [LINK target...] [DEFINE name=value...] [PRECOMPILED name])
# A GoogleTest program; ctest runs each of its cases. PRECOMPILED: a flitmark_precompiled of its own.
function(flitmark_test Name)
	cmake_parse_arguments(Arg "" "PRECOMPILED" "SOURCES;INCLUDE;LINK;DEFINE" ${ARGN})
	add_executable(${Name} ${Arg_SOURCES})
	target_include_directories(${Name} PRIVATE ${Arg_INCLUDE})
	target_compile_definitions(${Name} PRIVATE ${Arg_DEFINE})
	target_link_libraries(${Name} PRIVATE FlitmarkFlags ${Arg_LINK} GTest::gtest GTest::gtest_main)
	# Tests take longer to optimize than to run; the code under test is optimized.
	target_compile_options(${Name} PRIVATE -O0)
	set_target_properties(${Name} PROPERTIES FLITMARK_UNOPTIMIZED ON)
	if(NOT Arg_PRECOMPILED)
		set(Arg_PRECOMPILED FlitmarkTestHeaders)
	endif()
	target_precompile_headers(${Name} REUSE_FROM ${Arg_PRECOMPILED})
	gtest_discover_tests(${Name} DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES)
endfunction()
