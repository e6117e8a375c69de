import QtQuick
import Flitmark

// Marks its parent as having the keyboard focus.
Rectangle {
	anchors.fill: parent
	anchors.margins: -3
	radius: Theme.radius + 3
	color: "transparent"
	border.width: 2
	border.color: Theme.focus
}
