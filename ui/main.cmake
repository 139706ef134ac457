# Views of the main window: append to ORVANE_UI_QML and ORVANE_UI_SOURCES.
list(APPEND ORVANE_UI_SOURCES
  painted/history_chart.cpp painted/history_chart.h
  painted/rectangle_shadow.cpp painted/rectangle_shadow.h
  painted/share_bar.cpp painted/share_bar.h)

list(APPEND ORVANE_UI_QML
  main/AnimatedCircularGauge.qml
  main/CompactMemoryBar.qml
  main/CompactOverviewView.qml
  main/CompactStatCard.qml
  main/ContentView.qml
  main/DetailsToggleBar.qml
  main/GaugeShadow.qml
  main/HistoryPlot.qml
  main/MainBoostButton.qml
  main/MainWindowBackground.qml
  main/MainWindowView.qml
  main/MemoryChartView.qml
  main/OverviewContent.qml
  main/OverviewDetails.qml
  main/SegmentedPicker.qml
  main/TopConsumersShortcut.qml)
