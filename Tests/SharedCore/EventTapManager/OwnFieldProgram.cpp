// A program that types into its own text field from its main thread: its first argument once it has the
// focus, and its second one when the first letter of that has come. It prints the answers of the calls, in
// the order in which they return, and then the field's text. Where the user closes the window it ends without
// closing it first.

#include "SharedCore/EventTapManager/TextTyping.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QTimer>

#include <cstdio>

namespace {

class Field final : public QLineEdit
{
protected:
    void closeEvent(QCloseEvent *event) override
    {
        event->ignore();
        QApplication::exit();
    }
};

void type(const QString &text)
{
    std::printf("%d\n", sharedcore::typeText(text.toStdString()) ? 1 : 0);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    Field field;
    field.setWindowTitle(QStringLiteral("Own field"));
    bool isFirstLetter = true;
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&] {
        if (std::exchange(isFirstLetter, false)) {
            type(QApplication::arguments().value(2));
        }
    });
    QObject::connect(&application, &QApplication::focusChanged, &field, [&](QWidget *, QWidget *now) {
        if (now == &field) {
            QTimer::singleShot(0, &field, [&] {
                type(QApplication::arguments().value(1));
                std::printf("%s\n", qUtf8Printable(field.text()));
                QApplication::quit();
            });
        }
    });
    field.show();
    return QApplication::exec();
}
