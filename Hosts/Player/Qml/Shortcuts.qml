import QtQuick
import Flitmark

// Every key and what it does: one list, for handling keys and for the page that shows them.
QtObject {
	id: root

	required property var actions

	readonly property var groups: [
		{
			title: qsTr("Playback"),
			lines: [
				{ keys: ["Space", "K"], text: qsTr("Play or pause"), run: () => Player.TogglePlaying() },
				{ keys: ["Left", "Right"], text: qsTr("Back or forward 5 seconds"), runs: [(name, repeat) => Player.SeekByKey(-5, repeat), (name, repeat) => Player.SeekByKey(5, repeat)], repeats: true },
				{ keys: ["Shift+Left", "Shift+Right"], text: qsTr("Back or forward 1 second"), runs: [(name, repeat) => Player.SeekByKey(-1, repeat), (name, repeat) => Player.SeekByKey(1, repeat)], repeats: true },
				{ keys: ["Ctrl+Left", "Ctrl+Right"], text: qsTr("Back or forward 30 seconds"), runs: [(name, repeat) => Player.SeekByKey(-30, repeat), (name, repeat) => Player.SeekByKey(30, repeat)], repeats: true },
				{ keys: [",", "."], text: qsTr("Previous or next frame"), runs: [() => Player.StepFrame(false), () => Player.StepFrame(true)], repeats: true },
				{ keys: ["Home", "End"], text: qsTr("Start or end"), runs: [() => Player.SeekTo(0), () => Player.SeekTo(Player.duration)] },
				{ keys: ["0", "…", "9"], text: qsTr("Jump to 0% … 90%"), run: name => Player.SeekTo(Player.duration * Number(name) / 10), also: ["1", "2", "3", "4", "5", "6", "7", "8"] },
				{ keys: ["[", "]"], text: qsTr("Slower or faster"), runs: [() => Player.ChangeSpeed(false), () => Player.ChangeSpeed(true)] },
				{ keys: ["Backspace"], text: qsTr("Normal speed"), run: () => Player.speed = 1 }
			]
		},
		{
			title: qsTr("Sound"),
			lines: [
				{ keys: ["Up", "Down"], text: qsTr("Volume up or down"), runs: [() => Player.ChangeVolume(5), () => Player.ChangeVolume(-5)], repeats: true },
				{ keys: ["M"], text: qsTr("Mute or unmute"), run: () => Player.muted = !Player.muted }
			]
		},
		{
			title: qsTr("Comments"),
			lines: [
				{ keys: ["D"], text: qsTr("Show or hide comments"), run: () => root.actions.toggleComments() },
				{ keys: ["C", "Enter"], text: qsTr("Write a comment"), run: () => root.actions.writeComment() },
				{ keys: ["Ctrl+Shift+O"], text: qsTr("Open comments"), run: () => root.actions.openComments(), always: true }
			]
		},
		{
			title: qsTr("Window"),
			lines: [
				{ keys: ["Ctrl+O"], text: qsTr("Open a video"), run: () => root.actions.openVideo(), always: true },
				{ keys: ["F", "F11"], text: qsTr("Full screen"), run: () => root.actions.toggleFullScreen() },
				{ keys: ["Esc"], text: qsTr("Close a page, exit full screen"), run: () => root.actions.goBack() },
				{ keys: ["F1", "?"], text: qsTr("Keyboard shortcuts"), run: () => root.actions.showKeys() },
				{ keys: ["Ctrl+,"], text: qsTr("Settings"), run: () => root.actions.showSettings(), always: true },
				{ keys: ["Ctrl+I"], text: qsTr("Statistics"), run: () => root.actions.toggleStatistics(), always: true },
				{ keys: ["Ctrl+Q", "Ctrl+W"], text: qsTr("Quit"), run: () => root.actions.quit(), always: true }
			]
		}
	]

	// From the name of a key to its action.
	readonly property var table: {
		const found = new Map()
		for (const group of groups) {
			for (const line of group.lines) {
				for (const [index, key] of line.keys.concat(line.also ?? []).entries())
					found.set(key, { run: line.runs ? line.runs[index] : line.run, repeats: line.repeats ?? false, always: line.always || key.startsWith("F1") })
			}
		}
		return found
	}

	readonly property var names: new Map([
		[Qt.Key_Space, "Space"], [Qt.Key_Left, "Left"], [Qt.Key_Right, "Right"], [Qt.Key_Up, "Up"],
		[Qt.Key_Down, "Down"], [Qt.Key_Home, "Home"], [Qt.Key_End, "End"], [Qt.Key_Backspace, "Backspace"],
		[Qt.Key_Return, "Enter"], [Qt.Key_Enter, "Enter"], [Qt.Key_Escape, "Esc"], [Qt.Key_F1, "F1"],
		[Qt.Key_F11, "F11"], [Qt.Key_MediaTogglePlayPause, "Space"], [Qt.Key_MediaPlay, "Space"]
	])

	function nameOf(event) {
		const shift = event.modifiers & Qt.ShiftModifier ? "Shift+" : ""
		const control = event.modifiers & Qt.ControlModifier ? "Ctrl+" : ""
		if (names.has(event.key))
			return control + shift + names.get(event.key)
		if (control)
			return event.key > 0x20 && event.key < 0x7f ? control + shift + String.fromCharCode(event.key) : ""
		return event.modifiers & Qt.AltModifier ? "" : event.text.toUpperCase()
	}

	// True if the key was handled. In a text field, only keys that don't type anything are.
	function handle(event, inText) {
		const name = nameOf(event)
		const found = table.get(name)
		if (!found || (inText && !found.always))
			return false
		if (!event.isAutoRepeat || found.repeats)
			found.run(name, event.isAutoRepeat)
		return true
	}
}
