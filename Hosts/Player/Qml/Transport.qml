import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Flitmark

// The playback controls, over the lower edge of the picture.
FocusScope {
	id: root

	required property bool fullScreen
	// In use: must not fade out.
	readonly property bool busy: hover.hovered || seekBar.dragging || speedMenu.visible || openMenu.visible || tabbed
	readonly property bool tabbed: activeFocus

	signal openVideo
	signal openComments
	signal toggleFullScreen
	signal showKeys
	signal showSettings

	function volumeSign() {
		return Player.muted || Player.volume < 0.5 ? "muted" : Player.volume < 50 ? "volume-low" : "volume"
	}

	implicitHeight: column.implicitHeight + 2 * Theme.gap

	HoverHandler { id: hover }

	// The picture shows through, but text stays legible on any of it.
	Rectangle {
		anchors.bottom: parent.bottom
		width: parent.width
		height: parent.height + 70
		gradient: Gradient {
			GradientStop { position: 0.0; color: "#00000000" }
			GradientStop { position: 0.35; color: "#60000000" }
			GradientStop { position: 0.65; color: "#c0000000" }
			GradientStop { position: 1.0; color: "#f0000000" }
		}
	}

	ColumnLayout {
		id: column

		anchors.left: parent.left
		anchors.right: parent.right
		anchors.bottom: parent.bottom
		anchors.leftMargin: Theme.margin
		anchors.rightMargin: Theme.margin
		anchors.bottomMargin: 6
		spacing: 0

		SeekBar {
			id: seekBar

			objectName: "SeekBar"
			Layout.fillWidth: true
			opacity: Player.open ? 1 : 0
		}

		RowLayout {
			spacing: 4

			PlayerButton {
				objectName: "PlayButton"
				sign: Player.ended ? "replay" : Player.playing ? "pause" : "play"
				text: Player.ended ? qsTr("Play again") : Player.playing ? qsTr("Pause") : qsTr("Play")
				keys: qsTr("Space")
				enabled: Player.open
				onClicked: Player.TogglePlaying()
			}

			PlayerButton {
				id: muteButton

				objectName: "MuteButton"
				sign: root.volumeSign()
				text: Player.muted ? qsTr("Unmute") : qsTr("Mute")
				keys: "M"
				onClicked: Player.muted = !Player.muted
			}

			StyledSlider {
				objectName: "VolumeSlider"
				visible: root.width > 540
				Layout.preferredWidth: 84
				from: 0
				to: 100
				stepSize: 5
				opacity: Player.muted ? 0.5 : 1
				focusPolicy: Qt.TabFocus
				Accessible.name: qsTr("Volume")
				onMoved: {
					Player.muted = false
					Player.volume = value
				}

				// Dragging would break a plain binding.
				Binding on value { value: Player.volume }
			}

			Text {
				objectName: "Time"
				Layout.leftMargin: 10
				visible: Player.open
				text: Player.duration > 0
					? Player.FormatTime(Player.position) + " / " + Player.FormatTime(Player.duration)
					: Player.FormatTime(Player.position)
				color: Theme.text
				font.pixelSize: Theme.font
			}

			Item { Layout.fillWidth: true }

			Text {
				visible: root.width > 760 && text.length > 0
				Layout.rightMargin: 6
				Layout.maximumWidth: 260
				text: Player.comments.loading ? qsTr("Loading comments…")
					: Player.comments.name.length > 0 ? Player.comments.countText : ""
				elide: Text.ElideMiddle
				color: Theme.textSoft
				font.pixelSize: Theme.fontSmall
			}

			PlayerButton {
				id: speedButton

				objectName: "SpeedButton"
				text: qsTr("Speed")
				keys: "[ ]"
				implicitWidth: 52
				tipWanted: hovered && !speedMenu.visible
				onClicked: speedMenu.visible ? speedMenu.close() : speedMenu.open()
				Accessible.description: Player.FormatSpeed(Player.speed)

				Text {
					anchors.centerIn: parent
					text: Player.FormatSpeed(Player.speed)
					color: Player.speed === 1 ? Theme.text : Theme.accent
					font.pixelSize: Theme.font
					font.weight: Font.DemiBold
				}

				PlayerMenu {
					id: speedMenu

					y: -height - 4
					x: (parent.width - width) / 2
					lineWidth: 132

					Instantiator {
						model: [0.25, 0.5, 0.75, 1, 1.25, 1.5, 1.75, 2, 3, 4]
						onObjectAdded: (index, object) => speedMenu.insertAction(index, object)
						onObjectRemoved: (index, object) => speedMenu.removeAction(object)

						Action {
							required property real modelData

							text: Player.FormatSpeed(modelData)
							checkable: true
							checked: Player.speed === modelData
							onTriggered: Player.speed = modelData
						}
					}
				}
			}

			PlayerButton {
				objectName: "KeyboardButton"
				sign: "keyboard"
				text: qsTr("Keyboard shortcuts")
				keys: "F1"
				onClicked: root.showKeys()
			}

			PlayerButton {
				objectName: "PreferencesButton"
				sign: "settings"
				text: qsTr("Settings")
				keys: qsTr("Ctrl+,")
				onClicked: root.showSettings()
			}

			PlayerButton {
				objectName: "OpenButton"
				sign: "open"
				text: qsTr("Open")
				keys: qsTr("Ctrl+O")
				tipWanted: hovered && !openMenu.visible
				onClicked: openMenu.visible ? openMenu.close() : openMenu.show()

				OpenMenu {
					id: openMenu

					onOpenVideo: root.openVideo()
					onOpenComments: root.openComments()
				}
			}

			PlayerButton {
				objectName: "FullScreenButton"
				sign: root.fullScreen ? "windowed" : "fullscreen"
				text: root.fullScreen ? qsTr("Exit full screen") : qsTr("Full screen")
				keys: "F"
				onClicked: root.toggleFullScreen()
			}
		}
	}
}
