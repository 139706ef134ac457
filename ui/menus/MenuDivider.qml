/// A line between the entries of a PopupMenu.
MenuEntry {
    isDivider: true
}
