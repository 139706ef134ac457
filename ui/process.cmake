# Views of the list of applications: append to ORVANE_UI_QML and ORVANE_UI_SOURCES.
list(APPEND ORVANE_UI_SOURCES
  model/main_window_actions.cpp model/main_window_actions.h
  process/process_key_navigation.cpp process/process_key_navigation.h
  process/process_text.cpp process/process_text.h)

list(APPEND ORVANE_UI_QML
  process/ActionButton.qml
  process/ApplicationIcon.qml
  process/KillConfirmation.qml
  process/KillConfirmationWindow.qml
  process/MemoryInfoRow.qml
  process/ProcessHeader.qml
  process/ProcessInfoHeader.qml
  process/ProcessInfoHistory.qml
  process/ProcessInfoLocation.qml
  process/ProcessInfoPopover.qml
  process/ProcessInfoSection.qml
  process/ProcessList.qml
  process/ProcessMemoryChart.qml
  process/ProcessRow.qml
  process/ProcessesView.qml
  process/SelectionBar.qml)
