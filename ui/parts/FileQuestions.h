// Asks for the names of files. Paths are whole, and UTF-8; nothing when the question is cancelled.
#pragma once
#include <QString>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class QWidget;

// What files are listed, and what the name of a file to be saved ends in.
struct FileKind {
    QString filter;     // "Morvik Games (*.qdx)"
    QString extension;  // "qdx", added to a name typed without one
};

std::optional<std::string> AskFileToOpen(const FileKind& kind, const std::string& folder,
                                         QWidget* parent);

// Whether a file may be replaced is asked for the name with its extension. Both questions have the
// caption.
std::optional<std::string> AskFileToSave(const QString& caption, const FileKind& kind,
                                         const std::string& proposed, QWidget* parent);

struct FileOfKind {
    std::string path;
    std::size_t kind = 0;  // which of those offered
};

// The same with several kinds: the name's extension says which is meant, otherwise the filter that
// was chosen.
std::optional<FileOfKind> AskFileToSave(const QString& caption, std::span<const FileKind> kinds,
                                        const std::string& proposed, QWidget* parent);

// A file of this name in the folder of the documents, with a '-' for each '/' in the name.
std::string ProposedFile(QString name);

// Puts the contents in the place of the file's. The player is told when that could not be done.
bool WriteFileOrTell(const std::string& path, std::string_view contents, QWidget* parent);

// Asks for a place and writes the report there, its lines ended as files of this system have them.
// The name is proposed in the folder of the documents, with a '-' for each '/' in it. The player is
// told when the report could not be written.
void SaveReport(const std::string& report, QString name, QWidget* parent);
