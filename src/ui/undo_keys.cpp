#include "ui/undo_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace kestrum {

bool UndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride) {
        return false;
    }
    const auto* const edit = qobject_cast<const QLineEdit*>(watched);
    const auto* const key = static_cast<const QKeyEvent*>(event);
    const bool undo = key->matches(QKeySequence::Undo), redo = key->matches(QKeySequence::Redo);
    if (edit == nullptr || !(undo || redo) ||
        (undo ? edit->isUndoAvailable() : edit->isRedoAvailable())) {
        return false;
    }
    event->ignore();  // a line edit claims the keys also when it has nothing to take back
    return true;
}

}  // namespace kestrum
