#include "Utilities/File.h"

#include "core/base/Exceptions.h"

#include <filesystem>

namespace Utilities {

namespace {

constexpr int endOfFile = std::char_traits<char>::eof();

} // namespace

File& File::operator=(File const& other) {
    if (this != &other) *this = File(other);
    return *this;
}

String File::GetName() const { return {std::filesystem::path(path_.GetStdString()).filename().string()}; }

String File::GetDirectoryPath() const {
    return {std::filesystem::path(path_.GetStdString()).parent_path().string()};
}

void File::OpenAs(std::ios::openmode mode, char const* what) {
    auto stream = std::make_unique<std::fstream>(path_.GetStdString(), mode | std::ios::binary);
    if (!stream->is_open())
        throw Norvelian::Utilities::Exceptions::ResourceNotAvailableException(what + path_.GetStdString());
    stream_ = std::move(stream);
}

void File::Open() {
    std::error_code failure;
    // A directory opens like a file, and a pipe waits for whoever writes into it.
    if (!std::filesystem::is_regular_file(path_.GetStdString(), failure))
        throw Norvelian::Utilities::Exceptions::ResourceNotAvailableException("There is no file " +
                                                                              path_.GetStdString());
    OpenAs(std::ios::in, "Can't open ");
    char mark[3] = {};
    stream_->read(mark, sizeof mark);
    if (stream_->gcount() == 3 && std::string_view(mark, 3) == "\xEF\xBB\xBF") return;
    stream_->clear();
    stream_->seekg(0);
}

void File::Create() { OpenAs(std::ios::out | std::ios::trunc, "Can't create "); }

String File::ReadLine() {
    std::string line;
    if (!stream_) return {};
    std::getline(*stream_, line);
    // A disk that fails is no end of the file.
    if (stream_->bad())
        throw Norvelian::Utilities::Exceptions::ResourceException("Can't read " + path_.GetStdString());
    if (line.ends_with('\r')) line.pop_back();
    return {std::move(line)};
}

bool File::IsAtEnd() {
    if (!stream_ || !stream_->good()) return !stream_ || !stream_->bad();
    return stream_->peek() == endOfFile && !stream_->bad();
}

void File::Write(String const& text) {
    if (stream_) stream_->write(text.GetCharPointer(), text.Length());
}

void File::Close() {
    if (!stream_) return;
    auto const stream = std::move(stream_);
    // Reading to the end is no failure.
    bool const good = !stream->bad() && (stream->eof() || stream->good());
    stream->clear();
    stream->close();
    if (!good || !stream->good())
        throw Norvelian::Utilities::Exceptions::ResourceException("Can't write " + path_.GetStdString());
}

} // namespace Utilities
