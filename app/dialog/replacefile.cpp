#include "app/dialog/replacefile.h"

#include <QtCore/QFile>

namespace app {

namespace fs = std::filesystem;

namespace {

bool writeNew(const fs::path& path, const QByteArray& bytes) {
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(bytes) == bytes.size() &&
           file.flush();
}

} // namespace

bool replaceFile(const fs::path& path, const QByteArray& bytes) {
    const fs::path temporary = path.parent_path() / ('.' + path.filename().string() + ".tmp");
    std::error_code failure;
    fs::remove(temporary, failure); // of a program that was killed, or a trap
    if (writeNew(temporary, bytes))
        fs::rename(temporary, path, failure);
    else
        failure = std::make_error_code(std::errc::io_error);
    if (!failure)
        return true;
    std::error_code ignored;
    fs::remove(temporary, ignored);
    return false;
}

} // namespace app
