#pragma once

#include "core/base/Exceptions.h"

#include <string>

namespace Norvelian::ColorExchangeFormat {

/// A file can't be read or written. The message is "<file>:<line>:<column>: <reason>"; lines and columns
/// count from 1, columns in bytes. Both are 0, and left out of the message, if the failure concerns no
/// place in the text.
class FileException : public Utilities::Exceptions::ResourceException {
public:
    FileException(std::string file, unsigned long line, unsigned long column, std::string reason)
        : ResourceException(file + Place(line, column) + ": " + reason), file_(std::move(file)), line_(line),
          column_(column), reason_(std::move(reason)) {}

    std::string const& GetFile() const { return file_; }
    unsigned long GetLine() const { return line_; }
    unsigned long GetColumn() const { return column_; }
    std::string const& GetReason() const { return reason_; }

private:
    static std::string Place(unsigned long line, unsigned long column) {
        return line == 0 ? std::string() : ":" + std::to_string(line) + ":" + std::to_string(column);
    }

    std::string file_;
    unsigned long line_;
    unsigned long column_;
    std::string reason_;
};

/// Reading was ended by who asked for it; no fault of the file.
class ReadCancelled : public FileException {
public:
    explicit ReadCancelled(std::string file)
        : FileException(std::move(file), 0, 0, "reading was cancelled") {}
};

} // namespace Norvelian::ColorExchangeFormat
