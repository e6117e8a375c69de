import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Dialogs
import Flitmark

ApplicationWindow {
	id: window

	readonly property bool fullScreen: visibility === Window.FullScreen
	property int usualVisibility: Window.Windowed
	// Hidden while a video plays undisturbed.
	readonly property bool controlsShown: !Player.playing || stir.running || transport.busy || commentBar.busy || pageShown
	readonly property bool pageShown: settingsPage.visible || keyboardPage.visible
	readonly property bool inText: activeFocusItem !== null && activeFocusItem.cursorPosition !== undefined

	function toggleFullScreen() {
		if (fullScreen) {
			visibility = usualVisibility
		} else {
			usualVisibility = visibility
			visibility = Window.FullScreen
		}
	}

	function choose(dialog) {
		dialog.currentFolder = Player.folder
		dialog.open()
	}

	width: 1280
	height: 720
	minimumWidth: 480
	minimumHeight: 320
	color: Theme.window
	title: Player.open ? Player.title : "Flitmark"
	onControlsShownChanged: {
		// Hidden controls must not keep the focus.
		if (!controlsShown && (fullScreen || !commentBar.activeFocus))
			view.forceActiveFocus()
	}

	Shortcuts {
		id: shortcuts

		actions: ({
			toggleComments: () => Viewer.bar.open.Toggle(!Viewer.bar.open.checked),
			writeComment: () => {
				stir.restart()
				commentBar.focusField()
			},
			openComments: () => window.choose(commentsDialog),
			openVideo: () => window.choose(videoDialog),
			toggleFullScreen: () => window.toggleFullScreen(),
			goBack: () => {
				if (statistics.visible)
					statistics.visible = false
				else if (window.fullScreen)
					window.toggleFullScreen()
			},
			showKeys: () => keyboardPage.open(),
			showSettings: () => settingsPage.open(),
			toggleStatistics: () => statistics.visible = !statistics.visible,
			quit: () => window.close()
		})
	}

	Timer {
		id: stir

		interval: Theme.stay
		running: true
	}

	FocusScope {
		id: root

		anchors.fill: parent
		focus: true
		Keys.onPressed: event => {
			if (shortcuts.handle(event, window.inText)) {
				event.accepted = true
				stir.restart()
			}
		}

		HoverHandler {
			id: pointer

			// Also changes when something moves under a resting pointer, which doesn't count.
			property point last

			onPointChanged: {
				const at = point.scenePosition
				if (Math.abs(at.x - last.x) + Math.abs(at.y - last.y) >= 1) {
					last = at
					stir.restart()
				}
			}
		}

		Item {
			id: view

			// How far down nothing lies over the picture.
			readonly property real uncovered: window.controlsShown ? Math.min(height, transport.y) : height

			onUncoveredChanged: Player.SetCovered(height > 0 ? 100 * (1 - uncovered / height) : 0)
			focus: true
			width: parent.width
			height: window.fullScreen ? parent.height : parent.height - commentBar.height

			VideoItem {
				objectName: "Video"
				anchors.fill: parent
				visible: Player.open
			}

			CommentLayer {
				id: comments

				// The picture's own rectangle, without the black bars.
				readonly property size picture: Player.videoSize
				readonly property real fit: picture.width > 0
					? Math.min(view.width / picture.width, view.height / picture.height) : 0

				objectName: "Comments"
				visible: Player.open
				opacity: ViewSettings.opacity
				width: fit > 0 ? Math.round(picture.width * fit) : view.width
				height: fit > 0 ? Math.round(picture.height * fit) : view.height
				x: Math.round((view.width - width) / 2)
				y: Math.round((view.height - height) / 2)
				clip: true
				lift: Math.max(0, y + height - view.uncovered)

				Behavior on lift { NumberAnimation { duration: Theme.fade } }
			}

			MouseArea {
				// The press took the keyboard from a field; that is all it was for.
				property bool leaving: false

				anchors.fill: parent
				enabled: Player.open
				cursorShape: window.fullScreen && !window.controlsShown ? Qt.BlankCursor : Qt.ArrowCursor
				onPressed: {
					leaving = window.inText
					stir.restart()
					view.forceActiveFocus()
				}
				onClicked: {
					if (clickTimer.running)
						clickTimer.stop()
					else if (!leaving)
						clickTimer.start()
				}
				onDoubleClicked: {
					clickTimer.stop()
					window.toggleFullScreen()
				}
				onWheel: wheel => Player.ChangeVolume(wheel.angleDelta.y / 120 * 5)

				// Wait to see if it becomes a double click.
				Timer {
					id: clickTimer

					interval: Qt.styleHints.mouseDoubleClickInterval / 2
					onTriggered: Player.TogglePlaying()
				}
			}

			StartPage {
				objectName: "StartPage"
				anchors.fill: parent
				anchors.bottomMargin: transport.height
				visible: !Player.open
				onOpenVideo: window.choose(videoDialog)
			}

			WaitSign {
				anchors.centerIn: parent
				wanted: Player.waiting
			}
		}

		OnScreenMessage {
			id: screenMessage

			objectName: "OnScreenMessage"
			x: 20
			y: 20
			maximumWidth: Math.min(480, view.width - 40)
		}

		StatisticsCard {
			id: statistics

			objectName: "StatisticsCard"
			x: 20
			y: screenMessage.visible ? screenMessage.y + screenMessage.height + 8 : 20
			visible: false
		}

		Transport {
			id: transport

			objectName: "Transport"
			anchors.left: parent.left
			anchors.right: parent.right
			y: (window.fullScreen ? parent.height - commentBar.height : view.height) - height
			opacity: window.controlsShown ? 1 : 0
			visible: opacity > 0
			fullScreen: window.fullScreen
			onOpenVideo: window.choose(videoDialog)
			onOpenComments: window.choose(commentsDialog)
			onToggleFullScreen: window.toggleFullScreen()
			onShowKeys: keyboardPage.open()
			onShowSettings: settingsPage.open()

			Behavior on opacity { NumberAnimation { duration: Theme.fade } }
		}

		CommentBar {
			id: commentBar

			readonly property bool shown: !window.fullScreen || window.controlsShown

			objectName: "CommentBar"
			anchors.left: parent.left
			anchors.right: parent.right
			anchors.bottom: parent.bottom
			opacity: shown ? 1 : 0
			visible: shown || opacity > 0
			writable: Player.open
			onDone: view.forceActiveFocus()

			Behavior on opacity { NumberAnimation { duration: Theme.fade } }
		}

		MessageCards {
			objectName: "Messages"
			anchors.right: parent.right
			anchors.top: parent.top
			anchors.margins: 20
			width: Math.min(440, parent.width - 40)
		}

		Rectangle {
			anchors.fill: parent
			visible: drop.containsDrag
			color: Theme.scrim

			Rectangle {
				anchors.fill: parent
				anchors.margins: 20
				color: "transparent"
				radius: 14
				border.width: 2
				border.color: Theme.accent
			}

			Text {
				anchors.centerIn: parent
				text: qsTr("Drop a video, comments, or subtitles")
				color: Theme.text
				font.pixelSize: Theme.fontLarge
			}
		}

		DropArea {
			id: drop

			anchors.fill: parent
			keys: ["text/uri-list"]
			onDropped: event => {
				Player.OpenUrls(event.urls)
				event.acceptProposedAction()
			}
		}
	}

	KeyboardPage {
		id: keyboardPage

		objectName: "KeyboardPage"
		groups: shortcuts.groups
	}

	SettingsPage {
		id: settingsPage

		objectName: "SettingsPage"
	}

	FileDialog {
		id: videoDialog

		title: qsTr("Open a video")
		nameFilters: [
			qsTr("Videos (%1)").arg("*.mkv *.mp4 *.webm *.avi *.mov *.m4v *.flv *.ts *.m2ts *.mpg *.mpeg *.wmv *.ogv *.3gp"),
			qsTr("All files (%1)").arg("*")
		]
		onAccepted: Player.OpenUrls([selectedFile])
	}

	FileDialog {
		id: commentsDialog

		title: qsTr("Open comments")
		nameFilters: [
			qsTr("Comments (%1)").arg("*.json *.xml *.pb *.bin *.jsonl *.protobuf"),
			qsTr("All files (%1)").arg("*")
		]
		onAccepted: Player.comments.Open(selectedFile.toString())
	}

	Connections {
		target: Player

		function onAnnouncementsChanged() {
			screenMessage.show(Player.announcement)
		}
	}
}
