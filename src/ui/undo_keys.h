#pragma once

// The keys of undo and redo belong to the project, except while a text is being typed: then they
// take back letters, as everywhere.

#include <QObject>

namespace kestrum {

class UndoKeys final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kestrum
