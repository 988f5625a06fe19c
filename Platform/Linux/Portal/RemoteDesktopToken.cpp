#include "Platform/Linux/Portal/RemoteDesktopToken.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr qsizetype longestToken = 4096;
constexpr qsizetype longestFile = 4 * longestToken;
constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

bool isToken(const QString &text)
{
    const auto letters = text.toUcs4();
    return !letters.isEmpty() && letters.size() <= longestToken &&
           std::ranges::all_of(letters, [](char32_t letter) { return QChar::isPrint(letter); });
}

bool makeFolderOf(const QString &file)
{
    const auto folder = QFileInfo(file).absolutePath();
    return QDir().exists(folder) || (QDir().mkpath(QFileInfo(folder).absolutePath()) &&
                                     QDir().mkdir(folder, ownerOnly | QFile::ExeOwner));
}

} // namespace

QString RemoteDesktopToken::defaultFile()
{
    auto folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder)) {
        folder = QDir::home().filePath(QStringLiteral(".local/state"));
    }
    return folder + QStringLiteral("/stirra/remote-desktop-token");
}

RemoteDesktopToken::RemoteDesktopToken(QString file)
    : file_(std::move(file))
{}

QString RemoteDesktopToken::load() const
{
    QFile file(file_);
    if (!QFileInfo(file_).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const auto bytes = file.read(longestFile + 1);
    const auto text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes && isToken(text) ? text : QString();
}

bool RemoteDesktopToken::save(const QString &token) const
{
    if (!isToken(token)) {
        return QFile::remove(file_) || !QFile::exists(file_);
    }
    if (!makeFolderOf(file_)) {
        return false;
    }
    QSaveFile file(file_);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(ownerOnly) &&
           file.write(token.toUtf8()) >= 0 && file.commit();
}

} // namespace platform
