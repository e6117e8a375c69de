import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// Open a file, or one of the recent videos.
PlayerMenu {
	id: root

	signal openVideo
	signal openComments

	function show() {
		Player.recents.Refresh()
		open()
	}

	y: -height - 4
	x: parent.width - width
	lineWidth: 340

	Action {
		readonly property string keys: qsTr("Ctrl+O")

		text: qsTr("Open video…")
		onTriggered: root.openVideo()
	}

	Action {
		readonly property string keys: qsTr("Ctrl+Shift+O")

		text: qsTr("Open comments…")
		onTriggered: root.openComments()
	}

	MenuSeparator {
		visible: recents.count > 0
		contentItem: Rectangle {
			implicitHeight: 1
			color: Theme.line
		}
	}

	Instantiator {
		id: recents

		model: Player.recents
		onObjectAdded: (index, object) => root.insertAction(index + 3, object)
		onObjectRemoved: (index, object) => root.removeAction(object)

		Action {
			required property string video
			required property string videoTitle
			required property bool missing

			text: videoTitle
			enabled: !missing
			onTriggered: Player.OpenVideo(video)
		}
	}
}
