import QtQuick
import Flitmark

// Shows where the keyboard is, around its parent.
Rectangle {
	anchors.fill: parent
	anchors.margins: -3
	radius: Theme.radius + 3
	color: "transparent"
	border.width: 2
	border.color: Theme.focus
}
