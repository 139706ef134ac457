list(APPEND ORVANE_UI_QML
  popover/BoostButton.qml
  popover/MemoryDetails.qml
  popover/GearMenu.qml
  popover/MenuMemoryRow.qml
  popover/StatusHeader.qml
  popover/StatusMenuView.qml
  popover/UsageRing.qml)
