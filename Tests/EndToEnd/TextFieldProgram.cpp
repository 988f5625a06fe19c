// A program of the desktop that has nothing but a text field. It prints every key that reaches the field and
// is neither a letter nor Return, and ends at Return with the text.

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <cstdio>

namespace {

class TextField : public QLineEdit
{
public:
    TextField()
    {
        setWindowTitle(QStringLiteral("Text field"));
        connect(this, &QLineEdit::returnPressed, this, [this] {
            std::printf("%s\n", qUtf8Printable(text()));
            QApplication::quit();
        });
    }

protected:
    void contextMenuEvent(QContextMenuEvent * /*event*/) override { std::puts("menu"); }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->modifiers() != Qt::NoModifier) {
            std::printf("key %d with modifiers\n", event->key());
        }
        QLineEdit::keyPressEvent(event);
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    TextField field;
    field.show();
    return QApplication::exec();
}
