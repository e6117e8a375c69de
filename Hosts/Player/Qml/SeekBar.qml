import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Shapes
import Flitmark

// The position, seeking, and the density of comments.
Item {
	id: root

	readonly property bool usable: Player.seekable && Player.duration > 0
	readonly property bool dragging: area.pressed
	readonly property real played: Player.duration > 0 ? Math.min(1, Player.position / Player.duration) : 0
	readonly property real buffered: Player.duration > 0 ? Math.min(1, Player.bufferedTo / Player.duration) : 0
	readonly property bool touched: usable && (area.containsMouse || area.pressed || activeFocus)

	// For assistive technology.
	readonly property real value: Player.position
	readonly property real minimumValue: 0
	readonly property real maximumValue: Player.duration
	readonly property real stepSize: 5

	function timeAt(x) {
		return Math.max(0, Math.min(1, x / width)) * Player.duration
	}

	implicitHeight: 46
	activeFocusOnTab: usable
	Accessible.role: Accessible.Slider
	Accessible.name: qsTr("Position")
	Accessible.description: qsTr("%1 of %2").arg(Player.FormatTime(Player.position)).arg(Player.FormatTime(Player.duration))
	Accessible.focusable: true
	Accessible.onIncreaseAction: Player.SeekBy(5)
	Accessible.onDecreaseAction: Player.SeekBy(-5)

	// Comments to come, and those already shown, brighter.
	Repeater {
		model: Player.comments.hasDensity ? 2 : 0

		Item {
			id: part

			required property int index

			x: index === 0 ? root.played * root.width : 0
			width: index === 0 ? root.width - x : root.played * root.width
			height: track.y
			clip: true

			Shape {
				x: -part.x
				width: root.width
				height: parent.height
				layer.enabled: true
				layer.samples: 4
				layer.smooth: true
				opacity: root.touched ? 0.85 : 0.5

				Behavior on opacity { NumberAnimation { duration: Theme.fade } }

				ShapePath {
					strokeColor: "transparent"
					fillColor: part.index === 0 ? "#9aa3b2" : Theme.accent
					scale: Qt.size(root.width, track.y)

					PathPolyline { path: Player.comments.density }
				}
			}
		}
	}

	Rectangle {
		id: track

		y: root.height - 14 - height / 2
		width: parent.width
		height: root.touched ? 6 : 4
		radius: height / 2
		color: "#55ffffff"

		Behavior on height { NumberAnimation { duration: Theme.quick } }

		Rectangle {
			width: root.buffered * parent.width
			height: parent.height
			radius: parent.radius
			color: "#50ffffff"
		}

		// Under the pointer.
		Rectangle {
			visible: root.usable && area.containsMouse && !area.pressed
			width: Math.max(0, Math.min(area.mouseX, parent.width))
			height: parent.height
			radius: parent.radius
			color: "#50ffffff"
		}

		Rectangle {
			width: root.played * parent.width
			height: parent.height
			radius: parent.radius
			color: Theme.accent
		}
	}

	Rectangle {
		x: root.played * root.width - width / 2
		y: track.y + track.height / 2 - height / 2
		width: 14
		height: 14
		radius: 7
		color: "white"
		visible: root.usable
		scale: root.dragging ? 1.2 : root.touched ? 1 : 0

		Behavior on scale { NumberAnimation { duration: Theme.quick } }

		FocusRing {
			visible: root.activeFocus
			radius: 10
		}
	}

	MouseArea {
		id: area

		// Reaches down to the buttons and a little past the ends, which are hard to hit otherwise.
		anchors.fill: parent
		anchors.topMargin: 16
		enabled: root.usable
		hoverEnabled: true
		cursorShape: Qt.PointingHandCursor
		preventStealing: true
		onPressed: mouse => Player.Scrub(root.timeAt(mouse.x))
		onPositionChanged: mouse => {
			if (pressed)
				Player.Scrub(root.timeAt(mouse.x))
		}
		onReleased: mouse => Player.SeekTo(root.timeAt(mouse.x))
	}

	Rectangle {
		id: bubble

		objectName: "SeekBubble"
		visible: root.usable && (area.containsMouse || area.pressed)
		x: Math.max(0, Math.min(root.width - width, area.mouseX - width / 2))
		y: -height + 10
		width: bubbleText.implicitWidth + 18
		height: 28
		radius: Theme.radiusSmall
		color: "#f0202228"
		border.color: Theme.line

		Text {
			id: bubbleText

			anchors.centerIn: parent
			text: Player.FormatTime(root.timeAt(area.mouseX))
			color: Theme.text
			font.pixelSize: Theme.font
		}
	}
}
