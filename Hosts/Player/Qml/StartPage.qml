import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Flitmark

// Shown while nothing is open.
Item {
	id: root

	signal openVideo

	onVisibleChanged: {
		if (visible)
			Player.recents.Refresh()
	}

	ColumnLayout {
		anchors.centerIn: parent
		width: Math.min(560, parent.width - 2 * Theme.margin)
		height: Math.min(implicitHeight, parent.height - 2 * Theme.margin)
		spacing: 0

		Text {
			Layout.alignment: Qt.AlignHCenter
			text: qsTr("Open a video")
			color: Theme.text
			font.pixelSize: Theme.fontTitle
			font.weight: Font.DemiBold
		}

		Text {
			Layout.topMargin: 6
			Layout.fillWidth: true
			horizontalAlignment: Text.AlignHCenter
			wrapMode: Text.Wrap
			text: qsTr("or drop one here, along with a comment file if you have one.")
			color: Theme.textSoft
			font.pixelSize: Theme.font
		}

		PageButton {
			objectName: "StartOpen"
			Layout.topMargin: 20
			Layout.alignment: Qt.AlignHCenter
			prominent: true
			text: qsTr("Open…")
			focusPolicy: Qt.TabFocus
			onClicked: root.openVideo()
		}

		Text {
			Layout.topMargin: 28
			Layout.bottomMargin: 6
			Layout.leftMargin: 12
			visible: list.count > 0
			text: qsTr("Recently played")
			color: Theme.textOff
			font.pixelSize: Theme.fontSmall
		}

		ListView {
			id: list

			objectName: "Recents"
			Layout.fillWidth: true
			Layout.fillHeight: true
			implicitHeight: contentHeight
			model: Player.recents
			clip: true
			boundsBehavior: Flickable.StopAtBounds
			ScrollBar.vertical: ScrollBar {}

			delegate: AbstractButton {
				id: line

				required property int index
				required property string video
				required property string videoTitle
				required property string place
				required property string comments
				required property bool missing

				width: list.width
				height: 52
				focusPolicy: Qt.TabFocus
				opacity: missing ? 0.5 : 1
				text: videoTitle
				Accessible.name: missing ? qsTr("%1, not found").arg(videoTitle) : videoTitle
				Keys.onReturnPressed: click()
				Keys.onEnterPressed: click()
				Keys.onDeletePressed: Player.recents.Remove(index)
				onClicked: Player.OpenVideo(video)

				background: Rectangle {
					radius: Theme.radius
					color: line.pressed ? Theme.pressed : line.hovered ? Theme.hover : "transparent"

					FocusRing {
						visible: line.visualFocus
						anchors.margins: 1
						radius: Theme.radius
					}
				}

				contentItem: Item {
					Icon {
						x: 12
						anchors.verticalCenter: parent.verticalCenter
						name: line.missing ? "warning" : "film"
						color: Theme.textSoft
					}

					Column {
						x: 46
						width: parent.width - 46 - 44
						anchors.verticalCenter: parent.verticalCenter
						spacing: 2

						Text {
							width: parent.width
							text: line.videoTitle
							textFormat: Text.PlainText
							elide: Text.ElideMiddle
							color: Theme.text
							font.pixelSize: Theme.font
						}

						Text {
							width: parent.width
							text: line.missing ? qsTr("No longer in %1").arg(line.place)
								: line.comments.length > 0 ? line.place + "  ·  " + line.comments : line.place
							textFormat: Text.PlainText
							elide: Text.ElideMiddle
							color: Theme.textSoft
							font.pixelSize: Theme.fontSmall
						}
					}

					PlayerButton {
						anchors.right: parent.right
						anchors.rightMargin: 6
						anchors.verticalCenter: parent.verticalCenter
						visible: line.hovered || line.visualFocus
						sign: "close"
						text: qsTr("Remove from list")
						keys: qsTr("Delete")
						focusPolicy: Qt.NoFocus
						onClicked: Player.recents.Remove(line.index)
					}
				}
			}
		}
	}
}
