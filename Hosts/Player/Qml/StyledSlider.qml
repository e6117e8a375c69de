import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A slider in the player's style.
Slider {
	id: root

	// For assistive technology.
	readonly property real minimumValue: from
	readonly property real maximumValue: to

	implicitHeight: 28
	padding: 0

	background: Rectangle {
		y: (root.height - height) / 2
		width: root.width
		height: 4
		radius: 2
		color: Theme.line

		Rectangle {
			width: root.visualPosition * (parent.width - 18) + 9
			height: parent.height
			radius: 2
			color: Theme.accent
		}
	}

	handle: Rectangle {
		x: root.visualPosition * (root.width - width)
		y: (root.height - height) / 2
		width: 18
		height: 18
		radius: 9
		color: root.pressed ? Theme.focus : "white"

		FocusRing {
			visible: root.visualFocus
			radius: 12
		}
	}
}
