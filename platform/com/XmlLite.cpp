#include "platform/com/XmlLite.h"

#include <algorithm>
#include <fstream>
#include <utf8.h>
#include <windows.h>
// After the system's own types.
#include <xmllite.h>

#include "platform/Files.h"
#include "platform/XmlFeed.h"
#include "platform/com/ComPtr.h"
#include "platform/com/ComText.h"
#include "platform/com/Counted.h"
#include "platform/com/Failure.h"
#include "platform/com/XmlProlog.h"

// It is in no import library.
extern "C" const IID IID_IXmlReader = {
    0x7279FC81, 0x709D, 0x4095, {0xB6, 0x3D, 0x69, 0xFE, 0x4B, 0x0D, 0x90, 0x30}};

namespace kestrune {

namespace {

constexpr LONG_PTR kDeepest = 0x7FFFFFFF;  // elements

/// Loaded by name: where Windows lacks it, documents are read as trees.
template <typename Function>
Function* Find(const char* name) {
  static const HMODULE library = LoadLibraryExW(L"xmllite.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return library ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)))
                 : nullptr;
}

constexpr std::string_view kReferences[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

bool IsForbidden(char byte) {
  const auto unit = static_cast<unsigned char>(byte);
  return unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r';
}
bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

/// A text in UTF-8 that is read front to back. Some versions of the reader let pass what is no XML, crash where a text is
/// cut off, and lose a character in which a piece of it ends: there is a look at the ends beforehand and at every piece,
/// each ends in ASCII, and what would take knowing XML better fails.
class Source : public Counted<ISequentialStream> {
 public:
  /// Whether the text ends with the end of the element that it begins with.
  bool LooksWhole() {
    const std::string head = Head(), tail = Tail();
    const auto end = std::string("</").append(XmlProlog<char>(head).RootName()) + ">";
    const auto last = tail.find_last_of('>');
    return end != "</>" && last != std::string::npos &&
           std::string_view(tail).substr(0, last + 1).ends_with(end) &&
           Trim(FromUtf8(tail.substr(last + 1))).empty();
  }
  /// Makes reading fail where a character stands as its number, such as "&#13;".
  void RefuseNumbers() { allows_numbers_ = false; }

  HRESULT STDMETHODCALLTYPE Read(void* buffer, ULONG size, ULONG* count) override {
    std::size_t read = 0;
    const HRESULT result = Guarded([&] {
      if (has_failed_ || (given_ == checked_ && !Refill())) return E_FAIL;
      std::string_view piece =
          std::string_view(bytes_).substr(given_, std::min<std::size_t>(size, checked_ - given_));
      const bool is_end = piece.empty();
      while (!piece.empty() && !IsAscii(piece.back())) piece.remove_suffix(1);
      read = piece.copy(static_cast<char*>(buffer), size);
      given_ += read;
      if (is_end) return S_FALSE;
      return read > 0 ? S_OK : E_FAIL;
    });
    *count = static_cast<ULONG>(read);
    has_failed_ = FAILED(result);
    return result;
  }
  /// Whether it has; some versions of the reader go on all the same.
  bool HasFailed() const { return has_failed_; }
  HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return STG_E_ACCESSDENIED; }

 protected:
  static constexpr std::size_t kLook = 4096;  // bytes at either end

 private:
  static constexpr std::size_t kPiece = 65536;  // bytes
  static constexpr std::size_t kAhead = 8;      // longer than any reference and any character

  virtual std::string Head() = 0;
  virtual std::string Tail() = 0;
  /// Throws AutomationError when it cannot be read.
  virtual std::size_t ReadBytes(char* buffer, std::size_t size) = 0;

  bool Refill() {
    bytes_.erase(0, given_);
    given_ = 0;
    const std::size_t kept = bytes_.size();
    bytes_.resize(kept + kPiece);
    const std::size_t read = ReadBytes(bytes_.data() + kept, kPiece);
    bytes_.resize(kept + read);
    checked_ = bytes_.size() - (read == 0 ? 0 : std::min(kAhead, bytes_.size()));
    while (checked_ > 0 && checked_ < bytes_.size() && !IsAscii(bytes_[checked_ - 1])) --checked_;
    if (checked_ == 0 && read > 0) return Refill();
    const auto end = bytes_.begin() + static_cast<std::ptrdiff_t>(checked_);
    return utf8::is_valid(bytes_.begin(), end) && std::none_of(bytes_.begin(), end, IsForbidden) &&
           HasKnownReferences();
  }

  bool HasKnownReferences() const {
    for (auto at = bytes_.find('&'); at < checked_; at = bytes_.find('&', at + 1)) {
      const auto is_here = [this, at](std::string_view known) {
        return bytes_.compare(at, known.size(), known) == 0;
      };
      const bool is_known = std::any_of(std::begin(kReferences), std::end(kReferences), is_here);
      if (!is_known && !(allows_numbers_ && is_here("&#"))) return false;
    }
    return true;
  }

  std::string bytes_;
  std::size_t given_ = 0;    // of these
  std::size_t checked_ = 0;  // of these
  bool allows_numbers_ = true;
  bool has_failed_ = false;
};

class FileSource final : public Source {
 public:
  explicit FileSource(const Text& path) : file_(ToPath(path), std::ios::binary) {}
  bool IsOpen() const { return file_.is_open(); }

 private:
  std::string Head() override { return Look(0); }
  std::string Tail() override {
    file_.seekg(0, std::ios::end);
    const auto size = file_.tellg();
    return Look(std::max<std::streamoff>(0, size - static_cast<std::streamoff>(kLook)));
  }
  std::string Look(std::streamoff from) {
    std::string bytes(kLook, '\0');
    file_.seekg(from);
    file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file_.gcount()));
    file_.clear();
    file_.seekg(0);
    return bytes;
  }
  std::size_t ReadBytes(char* buffer, std::size_t size) override {
    file_.read(buffer, static_cast<std::streamsize>(size));
    if (file_.bad()) throw AutomationError(error::kFileFailure, u"Kestrune", {});
    return static_cast<std::size_t>(file_.gcount());
  }
  std::ifstream file_;
};

class TextSource final : public Source {
 public:
  explicit TextSource(TextView text) : text_(text), unread_(text) {}

 private:
  std::string Head() override { return ToUtf8(text_.substr(0, kLook)); }
  std::string Tail() override { return ToUtf8(text_.substr(text_.size() - std::min(text_.size(), kLook))); }
  std::size_t ReadBytes(char* buffer, std::size_t size) override { return TakeUtf8(unread_, buffer, size); }

  TextView text_;
  TextView unread_;
};

ComPtr<IXmlReader> NewReader() {
  ComPtr<IXmlReader> reader;
  const auto create = Find<HRESULT WINAPI(REFIID, void**, IMalloc*)>("CreateXmlReader");
  if (!create || FAILED(create(IID_IXmlReader, reader.OutVoid(), nullptr))) return {};
  const bool is_set =
      SUCCEEDED(reader->SetProperty(XmlReaderProperty_DtdProcessing, DtdProcessing_Prohibit)) &&
      SUCCEEDED(reader->SetProperty(XmlReaderProperty_MaxElementDepth, kDeepest));
  return is_set ? reader : ComPtr<IXmlReader>();
}

using Getter = HRESULT (STDMETHODCALLTYPE IXmlReader::*)(const wchar_t**, UINT*);

/// A text of the node that the reader stands on, as long as it does.
TextView TextOf(IXmlReader& reader, Getter getter) {
  const wchar_t* text = nullptr;
  UINT length = 0;
  if (FAILED((reader.*getter)(&text, &length)) || !text) return {};
  return FromWide({text, length});
}

void TakeAttributes(IXmlReader& reader, XmlAttributes& attributes) {
  attributes.clear();
  for (HRESULT result = reader.MoveToFirstAttribute(); result == S_OK;
       result = reader.MoveToNextAttribute()) {
    const TextView name = TextOf(reader, &IXmlReader::GetLocalName);
    const bool is_namespace = name == u"xmlns" || TextOf(reader, &IXmlReader::GetPrefix) == u"xmlns";
    if (!is_namespace) attributes.emplace_back(name, TextOf(reader, &IXmlReader::GetValue));
  }
  reader.MoveToElement();
}

struct Place {
  UINT Line = 0;
  UINT Position = 0;

  friend auto operator<=>(const Place&, const Place&) = default;
};

/// Whether the node that the reader stands on stands behind `last`; takes its place for that then.
bool StandsBehind(IXmlReader& reader, Place& last) {
  Place place;
  reader.GetLineNumber(&place.Line);
  reader.GetLinePosition(&place.Position);
  return std::exchange(last, place) < place;
}

bool Read(IXmlReader& reader, XmlHandler& handler) {
  XmlFeed feed(handler);
  XmlAttributes attributes;
  XmlNodeType type = XmlNodeType_None;
  std::size_t depth = 0;
  Place last;
  HRESULT result;
  while ((result = reader.Read(&type)) == S_OK) {
    // Some versions tell a node once more, or for ever, where an element does not end. Blanks at the end have no place.
    const bool has_place = type != XmlNodeType_Whitespace || depth > 0;
    if (has_place && !StandsBehind(reader, last)) return false;
    switch (type) {
      case XmlNodeType_Element: {
        const bool is_empty = reader.IsEmptyElement();
        TakeAttributes(reader, attributes);
        feed.Start(TextOf(reader, &IXmlReader::GetLocalName), attributes);
        is_empty ? feed.End() : void(++depth);
        break;
      }
      case XmlNodeType_EndElement:
        feed.End();
        --depth;
        break;
      case XmlNodeType_Text:
      case XmlNodeType_CDATA:
      case XmlNodeType_Whitespace:
        if (feed.WantsText()) feed.Content() += TextOf(reader, &IXmlReader::GetValue);
        break;
      default:
        break;
    }
  }
  return result == S_FALSE && depth == 0;  // anything else is not the end but a failure
}

/// Told of the encoding, since a text of ours may still say which one it had as a file.
bool Read(Source& source, XmlHandler& handler) {
  const auto reader = NewReader();
  const auto make_input =
      Find<HRESULT WINAPI(IUnknown*, IMalloc*, const wchar_t*, BOOL, const wchar_t*, IUnknown**)>(
          "CreateXmlReaderInputWithEncodingName");
  ComPtr<IUnknown> input;
  return reader && make_input &&
         SUCCEEDED(make_input(&source, nullptr, L"utf-8", FALSE, nullptr, input.Out())) &&
         SUCCEEDED(reader->SetInput(input.Get())) && Read(*reader.Get(), handler) && !source.HasFailed();
}

/// Some versions make a blank of every line end that stands as its number, and half a character of those beyond the
/// first plane.
bool ReadsNumbersRightly() {
  struct : XmlHandler {
    void OnDocument() override {}
    bool OnStart(TextView, const XmlAttributes&) override { return true; }
    void OnEnd(TextView content) override { IsRight = content == u"\r\U0001F682"; }
    bool IsRight = false;
  } probe;
  ComPtr<TextSource> text;
  *text.Out() = new TextSource(u"<a>&#13;&#x1F682;</a>");
  return Read(*text.Get(), probe) && probe.IsRight;
}

bool ReadRightly(Source& source, XmlHandler& handler) {
  static const bool reads_numbers = ReadsNumbersRightly();
  if (!source.LooksWhole()) return false;
  if (!reads_numbers) source.RefuseNumbers();
  return Read(source, handler);
}

}  // namespace

bool ReadWithXmlLite(const Text& path, XmlHandler& handler) {
  ComPtr<FileSource> file;
  *file.Out() = new FileSource(path);
  return file->IsOpen() && ReadRightly(*file.Get(), handler);
}

bool ReadTextWithXmlLite(TextView xml, XmlHandler& handler) {
  ComPtr<TextSource> text;
  *text.Out() = new TextSource(xml);
  return ReadRightly(*text.Get(), handler);
}

}  // namespace kestrune
