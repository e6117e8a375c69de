pragma Singleton
import QtQuick

// Colors, sizes and times of the whole window. Sizes are logical pixels.
QtObject {
	// Behind the picture.
	readonly property color window: "#000000"
	// Strips and pages.
	readonly property color surface: "#17181c"
	// Panels and menus over the picture.
	readonly property color raised: "#202228"
	readonly property color scrim: "#b0000000"
	// Text fields.
	readonly property color field: "#0f1013"
	readonly property color line: "#33363e"
	readonly property color hover: "#1affffff"
	readonly property color pressed: "#30ffffff"

	readonly property color text: "#f2f3f5"
	readonly property color textSoft: "#b3b7c0"
	readonly property color textOff: "#6d727d"

	readonly property color accent: "#3ea6ff"
	readonly property color accentSoft: "#603ea6ff"
	// On the accent color.
	readonly property color accentText: "#06121d"
	readonly property color focus: "#9fd2ff"
	readonly property color warning: "#ffb454"
	readonly property color error: "#ff6b68"

	readonly property int radius: 8
	readonly property int radiusSmall: 6
	readonly property int gap: 8
	readonly property int margin: 16

	// A button's side, and its icon's.
	readonly property int control: 36
	readonly property int icon: 20
	readonly property int barHeight: 52

	readonly property int fontSmall: 12
	readonly property int font: 14
	readonly property int fontLarge: 18
	readonly property int fontTitle: 24

	// Milliseconds.
	readonly property int quick: 120
	readonly property int fade: 220
	// How long the controls stay after the last activity.
	readonly property int stay: 2500
}
