# The Win32 platform, the program file and the test helpers.
set(TARVELON_WIN_LIBS comctl32 comdlg32 shell32 ole32 oleaut32 uuid gdi32 user32 advapi32 version)

# Static C and C++ runtime: no DLL beside the program file. ASLR and DEP on.
set(TARVELON_WIN_LINK -static -static-libgcc -static-libstdc++
    -Wl,--dynamicbase -Wl,--nxcompat)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  list(APPEND TARVELON_WIN_LINK -Wl,--high-entropy-va)
endif()

# Windows XP is the oldest system whose headers the program compiles against;
# the 32-bit program file loads on Windows 98 SE too (tools/check-imports.sh).
add_compile_definitions(_WIN32_WINNT=0x0501 WINVER=0x0501 _WIN32_IE=0x0600)

add_library(tarvelon_win32 STATIC ${TARVELON_WIN32_SOURCES})
set_target_properties(tarvelon_win32 PROPERTIES UNITY_BUILD ${TARVELON_UNITY})
target_link_libraries(tarvelon_win32 PUBLIC tarvelon_core ${TARVELON_WIN_LIBS})
target_link_options(tarvelon_win32 INTERFACE ${TARVELON_WIN_LINK})

enable_language(RC)
configure_file(packaging/version.rc.in ${CMAKE_BINARY_DIR}/version.rc @ONLY)
# The one version of a release: the program file, the About page, the
# installers and the file names all follow it.
file(WRITE ${CMAKE_BINARY_DIR}/version.txt "${PROJECT_VERSION}\n")
add_executable(TarvelonLow WIN32
  platform/win32/program_entry.cpp
  ${CMAKE_BINARY_DIR}/version.rc)
target_include_directories(TarvelonLow PRIVATE ${PROJECT_SOURCE_DIR}/packaging)
# The 32-bit program loads on Windows 98: the runtime's few wide-text imports
# are replaced by narrow calls (tools/check-imports.sh checks the result).
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_sources(TarvelonLow PRIVATE platform/win32/narrow_runtime_imports.cpp)
endif()
target_link_libraries(TarvelonLow PRIVATE tarvelon_win32)
set_target_properties(TarvelonLow PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
# The help pages lie beside the program file, as they are installed, and are
# copied again whenever one of them changes.
file(GLOB TARVELON_HELP_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/packaging/help/*)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/help.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${CMAKE_BINARY_DIR}/Help
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/packaging/help ${CMAKE_BINARY_DIR}/Help
  COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/help.stamp
  DEPENDS ${TARVELON_HELP_PAGES})
add_custom_target(help_pages ALL DEPENDS ${CMAKE_BINARY_DIR}/help.stamp)
# The licence, the runtime's notices and the release notes, beside the program
# as well, where the help links to them.
foreach(text LICENSE.txt packaging/NOTICES.txt CHANGELOG.md)
  configure_file(${PROJECT_SOURCE_DIR}/${text} ${CMAKE_BINARY_DIR} COPYONLY)
endforeach()

if(TARVELON_TESTS)
  add_subdirectory(tools)
endif()
