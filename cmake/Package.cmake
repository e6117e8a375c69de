# Packs the plugin as a game developer gets it: out/Flitmark-VERSION.zip, out of the files of this repository.
#   cmake -D Output=FOLDER [-D Write=ON] -P cmake/Package.cmake
# What is in it must be what Tests/Package/files.txt lists; Write=ON writes the list instead.
cmake_minimum_required(VERSION 3.25)
get_filename_component(Root ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
set(List ${Root}/Tests/Package/files.txt)
if(NOT Output)
	message(FATAL_ERROR "say where the package goes: -D Output=FOLDER")
endif()
cmake_path(ABSOLUTE_PATH Output BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
set(Stage ${Output}/package)
set(Plugin ${Stage}/Flitmark)
file(REMOVE_RECURSE ${Stage})
file(MAKE_DIRECTORY ${Plugin})

# The descriptor without the modules that stay here. As text, so that its layout stays.
file(READ ${Root}/Flitmark.uplugin Descriptor)
string(JSON Version GET "${Descriptor}" VersionName)
string(REGEX REPLACE ",[ \t\r\n]*{[^{}]*\"Type\": \"DeveloperTool\"[^{}]*}" "" Descriptor "${Descriptor}")
string(JSON NumModules LENGTH "${Descriptor}" Modules)
math(EXPR Last "${NumModules} - 1")
foreach(Index RANGE ${Last})
	string(JSON Name GET "${Descriptor}" Modules ${Index} Name)
	string(JSON Type GET "${Descriptor}" Modules ${Index} Type)
	if(NOT Type STREQUAL "Runtime")
		message(FATAL_ERROR "Flitmark.uplugin: module ${Name} is of type ${Type}; a package holds runtime modules and leaves "
			"out those of type DeveloperTool")
	endif()
	list(APPEND Modules ${Name})
endforeach()
file(WRITE ${Plugin}/Flitmark.uplugin "${Descriptor}")

foreach(Name IN LISTS Modules)
	file(COPY ${Root}/Source/${Name} DESTINATION ${Plugin}/Source)
endforeach()
file(COPY ${Root}/Config ${Root}/Resources ${Root}/CHANGELOG.md DESTINATION ${Plugin})
file(COPY ${Root}/Docs/document-format.md DESTINATION ${Plugin}/Docs)

# README: the part for game developers, up to the next heading of its rank. Links lead only to what is in the package.
file(READ ${Root}/README.md Readme)
string(FIND "${Readme}" "\n## For game developers\n" Start)
if(Start EQUAL -1)
	message(FATAL_ERROR "README.md has no part '## For game developers'")
endif()
string(SUBSTRING "${Readme}" ${Start} -1 Readme)
string(REGEX REPLACE "^\n## For game developers\n" "" Readme "${Readme}")
string(FIND "\n${Readme}" "\n## " End)
if(NOT End EQUAL -1)
	string(SUBSTRING "${Readme}" 0 ${End} Readme)
endif()
string(REGEX REPLACE "!\\[[^]]*\\]\\(Docs/images/[^)]*\\)\n*" "" Readme "${Readme}")
string(REGEX REPLACE "\\(see \\[ARCHITECTURE\\.md\\]\\(ARCHITECTURE\\.md\\)\\)" "" Readme "${Readme}")
file(WRITE ${Plugin}/README.md "# Flitmark ${Version} for Unreal Engine 5.4\n${Readme}")
# Without brackets, which would glue the elements of a list together.
string(REPLACE "](" "<link>" Marked "${Readme}")
string(REGEX MATCHALL "<link>[^])#:]+[)#]" Links "${Marked}")
foreach(Link IN LISTS Links)
	string(REGEX REPLACE "^<link>|[)#]$" "" Link "${Link}")
	if(NOT EXISTS ${Plugin}/${Link})
		message(FATAL_ERROR "README.md links to ${Link} in its part for game developers, and the package has no such file")
	endif()
endforeach()

file(GLOB_RECURSE Files LIST_DIRECTORIES false RELATIVE ${Stage} ${Stage}/*)
list(SORT Files)
foreach(File IN LISTS Files)
	file(CHMOD ${Stage}/${File} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
list(JOIN Files "\n" Text)
if(Write)
	file(WRITE ${List} "${Text}\n")
endif()
file(STRINGS ${List} Expected)
if(NOT Files STREQUAL Expected)
	set(Missing ${Expected})
	list(REMOVE_ITEM Missing ${Files})
	set(Added ${Files})
	list(REMOVE_ITEM Added ${Expected})
	list(JOIN Missing "\n  - " Missing)
	list(JOIN Added "\n  + " Added)
	message(FATAL_ERROR "The package does not hold what Tests/Package/files.txt lists:\n  - ${Missing}\n  + ${Added}\n"
		"If that is meant, run scripts/package --list and commit the list.")
endif()

# Sorted, and of one time, so that the same sources give the same bytes.
set(Zip ${Output}/Flitmark-${Version}.zip)
file(WRITE ${Output}/package.list "${Text}\n")
file(GLOB Old ${Output}/Flitmark-*.zip)
file(REMOVE ${Zip} ${Old})
set(ENV{TZ} UTC)
execute_process(
	COMMAND ${CMAKE_COMMAND} -E tar cf ${Zip} --format=zip "--mtime=2024-01-01 00:00:00 UTC" --files-from=${Output}/package.list
	WORKING_DIRECTORY ${Stage}
	COMMAND_ERROR_IS_FATAL ANY)
# The archiver also notes when each file was made and last read, and whose it is: times and owners of this run.
execute_process(
	COMMAND perl -0777 -pi -e
		[=[s/UT\x0d\x00\x07(.{4}).{8}(?=ux)/UT\x0d\x00\x07$1$1$1/gs; s/ux\x0b\x00\x01\x04.{4}\x04.{4}/ux\x0b\x00\x01\x04\0\0\0\0\x04\0\0\0\0/gs]=]
		${Zip}
	COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${Output}/package.list)
file(REMOVE_RECURSE ${Stage})
message(STATUS "${Zip}")
