#include "codepass.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <variant>

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "cannotopen.h"

namespace kvarn {

class CodePass {
  public:
    template <class Way, class... More>
    CodePass(PassKind kind, std::in_place_type_t<Way> way, char const* path, More... more)
        : m_kind(kind), m_path(path), m_file(way, path, more...) {}

    PassKind Kind() const { return m_kind; }
    std::string const& Path() const { return m_path; }
    // The file, where it goes that way: TextReader or TextWriter.
    template <class Way> Way* As() { return std::get_if<Way>(&m_file); }
    bool IsClosed() const { return std::holds_alternative<std::monostate>(m_file); }

    bool Close() {
        auto* const writer = As<TextWriter>();
        bool const written = writer == nullptr || writer->Close();
        m_file.emplace<std::monostate>();
        return written;
    }

    void AddHolder() { ++m_holders; }
    // True when it was the last.
    bool RemoveHolder() { return --m_holders == 0; }

  private:
    PassKind m_kind;
    std::string m_path;
    std::variant<std::monostate, TextReader, TextWriter> m_file;
    int m_holders = 1;
};

namespace {

// A kind's place in NotRead.
int FirstOf(PassKind kind) {
    return static_cast<int>(kind);
}

// Null where the file cannot be opened that way.
template <class Way, class... More>
CodePass* Opened(PassKind kind, char const* path, More... more) {
    auto pass = std::make_unique<CodePass>(kind, std::in_place_type<Way>, path, more...);
    return pass->template As<Way>()->IsOpen() ? pass.release() : nullptr;
}

} // namespace

CodePass* Share(CodePass* pass) {
    if (pass != nullptr) {
        pass->AddHolder();
    }
    return pass;
}

void Release(CodePass*& pass) {
    // What is still open stays so: a client may have copied the object and hold its file on.
    if (pass != nullptr && pass->RemoveHolder() && pass->IsClosed()) {
        delete pass;
    }
    pass = nullptr;
}

bool ClosePass(CodePass*& pass) {
    bool const written = pass == nullptr || pass->Close();
    Release(pass);
    return written;
}

void ClosePassOn(CodePass*& pass, char const* path) {
    if (pass != nullptr && SamePath(pass->Path(), path)) {
        ClosePass(pass);
    }
}

ReadPass::ReadPass(CodePass*& pass, PassKind kind, NotRead& notRead, char const* caption,
                   int section)
    : m_pass(pass), m_kind(kind), m_notRead(notRead[FirstOf(kind) + section]), m_caption(caption) {
    bool const ended = pass != nullptr && pass->IsClosed(); // by another holder
    bool const another =
        pass != nullptr && pass->As<TextReader>() != nullptr && pass->Kind() != kind;
    if (ended || another) {
        ClosePass(pass);
    }
}

bool ReadPass::Open(char const* path) {
    if (*path == '\0') {
        return true;
    }
    m_pass = Opened<TextReader>(m_kind, path);
    if (m_pass == nullptr) {
        CannotRead(path);
    }
    return m_pass != nullptr;
}

void ReadPass::CannotRead(char const* path) {
    m_notRead = FileExists(path) ? path : "";
    kvarn::CannotRead(path, m_caption);
}

TextReader* ReadPass::File() {
    return m_pass != nullptr && m_pass->Kind() == m_kind ? m_pass->As<TextReader>() : nullptr;
}

bool ReadPass::NextLine(std::string_view& line) {
    TextReader* const file = File();
    bool const found = file != nullptr && file->ReadLine(line) && !IsStarLine(line);
    if (!found) {
        End();
    }
    return found;
}

void ReadPass::End() {
    TextReader const* const file = File();
    if (file == nullptr) {
        return;
    }
    bool const failed = file->Failed();
    std::string const path = m_pass->Path();
    ClosePass(m_pass);
    if (failed) {
        CannotRead(path.c_str());
    } else if (SamePath(path, m_notRead.GetString())) {
        m_notRead = "";
    }
}

std::span<CString> WritePass::NotReadOfKind() const {
    CString* const first = m_notRead + FirstOf(m_kind);
    return {first, m_kind == PassKind::miljkod ? std::end(m_notRead) : first + 1};
}

bool WritePass::MayBegin(char const* path) const {
    auto const notRead = NotReadOfKind();
    auto const isIt = [&](CString const& file) { return SamePath(path, file.GetString()); };
    return std::none_of(notRead.begin(), notRead.end(), isIt) || !FileExists(path);
}

bool WritePass::Begin(char const* path) {
    ClosePass(m_pass);
    if (*path == '\0') {
        return true;
    }
    return MayBegin(path) && Open(path, m_kind == PassKind::stampel ? Writes::anew : Writes::over);
}

bool WritePass::BeginAtEnd(char const* path) {
    ClosePass(m_pass);
    return Open(path, Writes::atEnd);
}

bool WritePass::Open(char const* path, Writes writes) {
    m_pass = Opened<TextWriter>(m_kind, path, writes);
    if (m_pass == nullptr) {
        return false;
    }
    for (CString& file : NotReadOfKind()) { // what is in the file from now on is the caller's
        file = "";
    }
    return true;
}

bool WritePass::IsUnderWay() const {
    return m_pass != nullptr && m_pass->Kind() == m_kind && m_pass->As<TextWriter>() != nullptr;
}

bool WritePass::Write(std::string_view lines) {
    return IsUnderWay() && m_pass->As<TextWriter>()->Write(lines);
}

bool WritePass::End() {
    return IsUnderWay() && ClosePass(m_pass);
}

} // namespace kvarn
