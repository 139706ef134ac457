# The small windows beside the main one, and its menu bar.
list(APPEND ORVANE_UI_SOURCES
  dialogs/update_model.cpp dialogs/update_model.h
  dialogs/update_texts.cpp dialogs/update_texts.h
  main/alt_key_watcher.cpp main/alt_key_watcher.h)

list(APPEND ORVANE_UI_QML
  dialogs/AboutView.qml
  dialogs/ProgressStripe.qml
  dialogs/ReleaseNotes.qml
  dialogs/UpdateView.qml
  main/MenuBar.qml
  main/MenuBarTitle.qml)
