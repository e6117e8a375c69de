import QtQuick
import Flitmark

// A small screen with the lines that comments of this mode use.
Rectangle {
	id: root

	required property string place
	required property bool marked
	readonly property color ink: marked ? Theme.accent : Theme.textSoft

	anchors.fill: parent
	radius: 4
	color: "transparent"
	border.width: 1.5
	border.color: Qt.alpha(ink, 0.55)

	Repeater {
		model: root.place === "Scroll"
			? [[6, 5, 17], [16, 10, 18], [9, 15, 13]]
			: root.place === "Top" ? [[9, 4, 22], [13, 9, 14]] : [[13, 12, 14], [9, 17, 22]]

		Rectangle {
			required property var modelData

			x: modelData[0]
			y: modelData[1]
			width: modelData[2]
			height: 2.5
			radius: 1.25
			color: root.ink
		}
	}
}
