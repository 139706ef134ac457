# What every view shares.
list(APPEND ORVANE_UI_SOURCES
  views.cpp views.h
  model/file_reader.h
  model/icon_decoder.cpp model/icon_decoder.h
  model/icon_provider.cpp model/icon_provider.h
  model/memory_model.cpp model/memory_model.h
  model/popover_actions.cpp model/popover_actions.h
  model/process_list_model.cpp model/process_list_model.h
  model/process_record.cpp model/process_record.h
  painted/bubble.cpp painted/bubble.h
  painted/gradient_arc.cpp painted/gradient_arc.h
  painted/gradient_text.cpp painted/gradient_text.h
  painted/blur.cpp painted/blur.h
  painted/painted_item.cpp painted/painted_item.h
  painted/smooth_path.cpp painted/smooth_path.h
  painted/smooth_rectangle.cpp painted/smooth_rectangle.h
  painted/symbol.cpp painted/symbol.h
  painted/unit_gradient.cpp painted/unit_gradient.h
  popup/popup_controller.cpp popup/popup_controller.h
  popup/popup_placement.cpp popup/popup_placement.h
  style/formats.cpp style/formats.h
  style/palette.cpp style/palette.h
  style/spring_curve.cpp style/spring_curve.h
  style/theme.cpp style/theme.h
  style/usage_colors.cpp style/usage_colors.h)

list(APPEND ORVANE_UI_QML
  controls/FocusRing.qml
  controls/PlainButton.qml
  controls/ProcessingArcs.qml
  controls/ScrollArea.qml
  controls/ScrollIndicator.qml
  popup/MenuDivider.qml
  popup/MenuEntry.qml
  popup/MenuList.qml
  popup/MenuRow.qml
  popup/PopupFrame.qml
  popup/PopupMenu.qml
  popup/PopupWindow.qml
  popup/ToolTipWindow.qml
  style/Divider.qml
  style/HoverEffect.qml
  style/OnScreen.qml
  style/ProcessingMotion.qml
  style/Spring.qml)

file(GLOB ORVANE_SYMBOLS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS symbols/*.svg)
list(APPEND ORVANE_UI_RESOURCES ${ORVANE_SYMBOLS})
