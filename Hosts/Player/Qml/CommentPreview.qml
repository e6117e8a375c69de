import QtQuick
import Flitmark

// A comment with the current settings, at its real size and usual speed.
Rectangle {
	id: root

	// Points, and a factor.
	required property real fontSize
	required property real speedScale
	// Logical pixels per unit of the overlay's canvas, as it is when the preview appears.
	readonly property real unit: visible ? Preferences.GetScale() : 1
	// A comment of average speed crosses 200 units per second.
	readonly property real speed: 200 * unit * speedScale

	clip: true
	radius: Theme.radius
	gradient: Gradient {
		GradientStop { position: 0; color: "#3a4a63" }
		GradientStop { position: 1; color: "#7d6a72" }
	}

	Text {
		id: comment

		anchors.verticalCenter: parent.verticalCenter
		x: root.width
		text: qsTr("Your comments look like this")
		// Points at 96 DPI.
		font.pixelSize: Math.max(1, root.fontSize * 96 / 72 * root.unit)
		color: "white"
		opacity: ViewSettings.opacity
		style: Text.Outline
		styleColor: "#c0000000"
	}

	FrameAnimation {
		running: root.visible
		onTriggered: {
			comment.x -= root.speed * frameTime
			if (comment.x < -comment.width)
				comment.x = root.width
		}
	}
}
