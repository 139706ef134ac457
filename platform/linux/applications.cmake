target_sources(orvane_platform PRIVATE
  application_grouping.cpp
  application_memory.cpp
  descriptor_limit.cpp
  desktop_entries.cpp
  desktop_entry_file.cpp
  evidence_reader.cpp
  linux_applications.cpp
  linux_process_signals.cpp
  process_command.cpp
  process_stat.cpp
  process_table.cpp
  proportional_size_reader.cpp
  systemd_unit.cpp
  x11_connection.cpp
  x11_windows.cpp)
