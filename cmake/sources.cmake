# Sources of the platform-free program, by layer.
set(TARVELON_CORE_SOURCES
  avshell/scanner_launch.cpp
  core/baseline_block.cpp
  core/baseline_text.cpp
  core/file_utils.cpp
  core/run_switch.cpp
  core/section_blocks.cpp
  core/settings_store.cpp
  core/settings_text.cpp
  core/text.cpp
  core/vb_number.cpp
  custom/custom_folder_form.cpp
  custom/custom_folder_manager.cpp
  custom/custom_slots.cpp
  hash/checksum.cpp
  hash/cpu_features.cpp
  hash/crc16.cpp
  hash/crc32_fold.cpp
  hash/crc32_portable.cpp
  hash/crc_engine.cpp
  hash/digest.cpp
  hash/file_checksum.cpp
  hash/hash_engine.cpp
  hash/md4.cpp
  hash/md5.cpp
  hash/read_buffer.cpp
  hash/sha1.cpp
  hash/sha1_shani.cpp
  integrity/baseline_build.cpp
  integrity/check_int_file.cpp
  integrity/compare_pass.cpp
  integrity/custom_baseline.cpp
  integrity/findings_action.cpp
  integrity/data_file.cpp
  integrity/data_file_text.cpp
  integrity/pending_list_index.cpp
  integrity/scan_driver.cpp
  integrity/scan_window.cpp
  logging/write_log.cpp
  regwatch/reg_class.cpp
  platform/controls.cpp
  platform/form.cpp
  ui/application.cpp
  ui/folder_scan_page.cpp
  ui/load_settings.cpp
  ui/main_actions.cpp
  ui/main_window.cpp
  ui/startup_folder.cpp
)

set(TARVELON_WIN32_SOURCES
  platform/win32/control_paint.cpp
  platform/win32/flat_controls.cpp
  platform/win32/win32_event_loop.cpp
  platform/win32/win32_files.cpp
  platform/win32/win32_message_boxes.cpp
  platform/win32/win32_processes.cpp
  platform/win32/win32_profile_files.cpp
  platform/win32/win32_registry.cpp
  platform/win32/pending_texts.cpp
  platform/win32/win32_renderer.cpp
  platform/win32/win32_shell.cpp
)

# The checksum code is tuned for processors in general: tuning for one family
# (as -march=native implies) costs MD5 a fifth of its speed on others.
set_source_files_properties(
  hash/crc32_fold.cpp hash/crc32_portable.cpp hash/md4.cpp hash/md5.cpp hash/sha1.cpp hash/sha1_shani.cpp
  PROPERTIES COMPILE_OPTIONS "-O3;-mtune=generic")
