#pragma once

// Drives the modal dialogs an action opens, one after another, as a user
// would: each step waits until a modal dialog of its kind is shown and acts
// on it. File dialogs must be Qt's own (Qt::AA_DontUseNativeDialogs).

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QList>
#include <QTimer>

#include <functional>

class DialogScript : public QObject {
public:
    template <class Dialog> DialogScript& then(std::function<void(Dialog*)> act) {
        steps << [act](QWidget* w) {
            auto* d = qobject_cast<Dialog*>(w);
            if (!d || !d->isVisible())
                return false;
            act(d);
            return true;
        };
        return *this;
    }
    // A file dialog: the file chosen (a name in the working folder; a save
    // dialog asks before replacing a file that exists), or cancelled.
    DialogScript& file(const QString& name) {
        return then<QFileDialog>([name](QFileDialog* d) {
            if (name.isEmpty()) {
                d->reject();
                return;
            }
            d->selectFile(QDir::current().absoluteFilePath(name));
            static_cast<QDialog*>(d)->accept(); // the file dialog's own, protected there
        });
    }
    bool done() const { return steps.isEmpty(); }

    DialogScript() {
        connect(&timer, &QTimer::timeout, this, [this] {
            QWidget* w = QApplication::activeModalWidget();
            if (w && !steps.isEmpty() && steps.first()(w))
                steps.removeFirst();
        });
        timer.start(5);
    }

private:
    QList<std::function<bool(QWidget*)>> steps;
    QTimer timer;
};
