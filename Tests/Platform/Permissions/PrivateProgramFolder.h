// The programs that a test has installed.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace platform {

// Is the whole PATH for as long as it lives.
class PrivateProgramFolder
{
public:
    PrivateProgramFolder() { qputenv("PATH", folder_.path().toLocal8Bit()); }
    PrivateProgramFolder(const PrivateProgramFolder &) = delete;
    PrivateProgramFolder &operator=(const PrivateProgramFolder &) = delete;
    ~PrivateProgramFolder() { qputenv("PATH", before_); }

    // A program that writes down its name and its arguments, each in a line.
    void install(const char *name) const
    {
        write(name, "#!/bin/sh\nprintf '%s\\n' \"${0##*/}\" \"$@\" >'" + recordFile().toLocal8Bit() + "'\n");
    }
    // A file that looks like a program and cannot be started.
    void installBroken(const char *name) const { write(name, "#!/nonexistent/interpreter\n"); }

    [[nodiscard]] QString path(const char *name) const { return folder_.filePath(QString::fromLatin1(name)); }

    // What the last program has written, without the last line's end.
    [[nodiscard]] QStringList record() const
    {
        QFile file(recordFile());
        const bool isThere = file.open(QIODevice::ReadOnly);
        const auto text = isThere ? QString::fromUtf8(file.readAll()) : QString();
        return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    [[nodiscard]] QString recordFile() const { return path("record"); }

    void write(const char *name, const QByteArray &text) const
    {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(text);
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
    }

    QTemporaryDir folder_;
    QByteArray before_ = qgetenv("PATH");
};

} // namespace platform
