import QtQuick

/// A row for each of the five memory counters: its name, the model's property of its bytes, the
/// theme's colour, and whether it is part of the total.
Repeater {
    model: [
        { name: "Free", bytes: "freeBytes", color: "green", isPart: true },
        { name: "Active", bytes: "activeBytes", color: "blue", isPart: true },
        { name: "Inactive", bytes: "inactiveBytes", color: "yellow", isPart: true },
        { name: "Wired", bytes: "wiredBytes", color: "red", isPart: true },
        { name: "Compressed", bytes: "compressedBytes", color: "purple", isPart: false }
    ]
}
