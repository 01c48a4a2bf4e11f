# Sources of the platform-free program, by layer.
set(TARVELON_CORE_SOURCES
  core/file_utils.cpp
  core/run_switch.cpp
  core/section_blocks.cpp
  core/settings_store.cpp
  core/settings_text.cpp
  core/text.cpp
  core/vb_number.cpp
  platform/controls.cpp
  platform/form.cpp
  ui/application.cpp
  ui/load_settings.cpp
  ui/main_window.cpp
  ui/startup_folder.cpp
)

set(TARVELON_WIN32_SOURCES
  platform/win32/win32_event_loop.cpp
  platform/win32/win32_files.cpp
  platform/win32/win32_message_boxes.cpp
  platform/win32/win32_processes.cpp
  platform/win32/win32_profile_files.cpp
  platform/win32/win32_renderer.cpp
  platform/win32/win32_shell.cpp
)
