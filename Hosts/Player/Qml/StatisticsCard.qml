import QtQuick
import QtQuick.Layouts
import Flitmark

// Rendering statistics.
Rectangle {
	id: root

	property var figures: Player.CollectFigures()

	function megabytes(bytes) {
		return qsTr("%1 MiB").arg((bytes / 1048576).toFixed(1))
	}

	function milliseconds(seconds) {
		return qsTr("%1 ms").arg((seconds * 1000).toFixed(2))
	}

	readonly property var lines: [
		[qsTr("Frames per second"), figures.framesPerSecond.toFixed(1)],
		[qsTr("Frame time, average"), milliseconds(figures.meanWork)],
		[qsTr("Frame time, worst in 5 s"), milliseconds(figures.worstWork)],
		[qsTr("Comments on screen"), figures.comments],
		[qsTr("Sprites made"), figures.spritesMade],
		[qsTr("Sprites waiting"), figures.spritesWaiting],
		[qsTr("Texture memory"), megabytes(figures.textureBytes)],
		[qsTr("Resolution"), Player.videoSize.width + " × " + Player.videoSize.height],
		[qsTr("Decoder"), figures.decoder.length > 0 ? figures.decoder : qsTr("software")]
	]

	width: grid.implicitWidth + 32
	height: grid.implicitHeight + 24
	radius: 10
	color: "#d0141519"

	Timer {
		running: root.visible
		interval: 500
		repeat: true
		triggeredOnStart: true
		onTriggered: root.figures = Player.CollectFigures()
	}

	GridLayout {
		id: grid

		x: 16
		y: 12
		columns: 2
		columnSpacing: 20
		rowSpacing: 4

		Repeater {
			model: root.lines.length * 2

			Text {
				required property int index

				Layout.alignment: index % 2 === 0 ? Qt.AlignLeft : Qt.AlignRight
				text: root.lines[Math.floor(index / 2)][index % 2]
				color: index % 2 === 0 ? Theme.textSoft : Theme.text
				font.pixelSize: Theme.fontSmall
			}
		}
	}
}
