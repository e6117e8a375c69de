import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A field of the module: shows the module's text, and passes on what the viewer types. Text still being composed by an
// input method is neither passed on nor touched.
TextField {
	id: root

	required property var mirror
	readonly property bool composing: preeditText.length > 0
	// Set during our own changes of the text, which are not passed on.
	property bool taking: false
	// Set while the mirror responds to our changes.
	property bool handing: false

	// The module took the text that was committed.
	signal sent

	function handIn() {
		handing = true
		mirror.Type(text)
		handing = false
	}

	// By what the viewer sends it with.
	function send(act) {
		const written = text.trim().length > 0
		act()
		if (written && text.length === 0)
			sent()
	}

	function handInAndSettle() {
		if (!taking) {
			handIn()
			settle()
		}
	}

	// The module may have cut or rewritten the text: the smallest edit preserves the cursor and the undo history.
	function settle() {
		const wanted = mirror.text
		if (composing || text === wanted)
			return
		let first = 0
		while (first < text.length && first < wanted.length && text[first] === wanted[first])
			++first
		let last = text.length
		let wantedLast = wanted.length
		while (last > first && wantedLast > first && text[last - 1] === wanted[wantedLast - 1]) {
			--last
			--wantedLast
		}
		taking = true
		remove(first, last)
		insert(first, wanted.slice(first, wantedLast))
		taking = false
	}

	// Skips steps to a text that the module doesn't accept, such as a paste before it was cut.
	function replay(step, possible) {
		taking = true
		do {
			step()
			handIn()
		} while (text !== mirror.text && possible())
		taking = false
		settle()
	}

	enabled: mirror.usable
	selectByMouse: true
	persistentSelection: menu.visible
	color: enabled ? Theme.text : Theme.textOff
	placeholderTextColor: Theme.textOff
	selectionColor: Theme.accent
	selectedTextColor: Theme.accentText
	font.pixelSize: Theme.font
	leftPadding: 12
	rightPadding: 12
	topPadding: 0
	bottomPadding: 0
	verticalAlignment: TextInput.AlignVCenter
	implicitHeight: Theme.control

	background: Rectangle {
		radius: Theme.radius
		color: root.enabled ? Theme.field : "transparent"
		border.width: root.activeFocus ? 2 : 1
		border.color: root.activeFocus ? Theme.accent : root.hovered && root.enabled ? Theme.textOff : Theme.line

		Behavior on border.color { ColorAnimation { duration: Theme.quick } }
	}

	Component.onCompleted: {
		taking = true
		text = mirror.text
		taking = false
	}
	onTextChanged: handInAndSettle()
	// May come before the composed text.
	onComposingChanged: if (!composing) handInAndSettle()
	onActiveFocusChanged: activeFocus ? mirror.TakeFocus() : mirror.LeaveFocus()

	Keys.onPressed: event => {
		if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
			// While the input method composes, Return ends the composition and no more.
			if (composing)
				Qt.inputMethod.commit()
			else if (!event.isAutoRepeat)
				send(() => mirror.Commit())
			event.accepted = true
		} else if (event.matches(StandardKey.Undo)) {
			if (canUndo)
				replay(() => undo(), () => canUndo)
			event.accepted = true
		} else if (event.matches(StandardKey.Redo)) {
			if (canRedo)
				replay(() => redo(), () => canRedo)
			event.accepted = true
		}
	}

	Connections {
		target: root.mirror

		function onTextChanged() {
			if (!root.handing && root.text !== root.mirror.text) {
				root.taking = true
				root.text = root.mirror.text
				root.taking = false
			}
		}

		function onFocusedChanged() {
			if (root.mirror.focused && !root.activeFocus)
				root.forceActiveFocus()
		}
	}

	TapHandler {
		acceptedButtons: Qt.RightButton
		onTapped: eventPoint => {
			root.forceActiveFocus(Qt.MouseFocusReason)
			menu.popup(eventPoint.position.x, eventPoint.position.y - menu.height)
		}
	}

	EditMenu {
		id: menu

		field: root
	}
}
