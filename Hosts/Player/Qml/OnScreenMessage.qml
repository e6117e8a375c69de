import QtQuick
import Flitmark

// A short message about the last action; fades out by itself.
Rectangle {
	id: root

	function show(text) {
		label.text = text
		opacity = 1
		// Long enough to read it.
		timer.interval = 1200 + Math.max(0, text.length - 20) * 45
		timer.restart()
	}

	width: Math.min(label.implicitWidth + 28, maximumWidth)
	height: label.implicitHeight + 16
	radius: 10
	color: "#d0141519"
	opacity: 0
	visible: opacity > 0
	property real maximumWidth: 480
	Accessible.role: Accessible.StaticText
	Accessible.name: label.text

	Behavior on opacity { NumberAnimation { duration: Theme.fade } }

	Text {
		id: label

		objectName: "OnScreenText"
		x: 14
		y: 8
		width: parent.width - 28
		wrapMode: Text.Wrap
		color: Theme.text
		font.pixelSize: 16
		font.weight: Font.Medium
	}

	Timer {
		id: timer

		onTriggered: root.opacity = 0
	}
}
