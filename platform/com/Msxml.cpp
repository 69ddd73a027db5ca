#include "platform/com/Msxml.h"

#include "platform/Files.h"
#include "platform/ResourceStore.h"
#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"
#include "platform/com/Owned.h"
#include "platform/com/XmlProlog.h"

// These are in no import library.
extern "C" const IID IID_IXMLDOMDocument2 = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
extern "C" const IID IID_ISAXXMLReader = {
    0xA4F96ED0, 0xF829, 0x476E, {0x81, 0xC0, 0xCD, 0xC7, 0xBD, 0x2A, 0x08, 0x02}};
extern "C" const IID IID_ISAXErrorHandler = {
    0xA60511C4, 0xCCF5, 0x479E, {0x98, 0xA3, 0xDC, 0x8D, 0xC5, 0x45, 0xB7, 0xD0}};

namespace kestrune {

namespace {

constexpr const wchar_t* kDocuments[] = {L"MSXML2.DOMDocument.6.0", L"MSXML2.DOMDocument.4.0",
                                         L"MSXML2.DOMDocument.3.0"};
constexpr const wchar_t* kReaders[] = {L"MSXML2.SAXXMLReader.6.0", L"MSXML2.SAXXMLReader.4.0",
                                       L"MSXML2.SAXXMLReader.3.0"};

template <typename T, std::size_t N>
ComPtr<T> Newest(const wchar_t* const (&prog_ids)[N], REFIID iid) {
  ComPtr<T> object;
  for (const wchar_t* prog_id : prog_ids) {
    CLSID class_id;
    if (FAILED(CLSIDFromProgID(prog_id, &class_id))) continue;
    if (SUCCEEDED(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, iid, object.OutVoid()))) break;
  }
  return object;
}

/// A version that does not know the property does not need it either.
void SetProperty(IXMLDOMDocument2& document, TextView name, const Variant& value) {
  document.setProperty(Bstr(name).Get(), ComVariant(value).Get());
}

/// Remembers the first failure of a reader; lives as long as one reading.
class FirstFailure final : public ISAXErrorHandler {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    const bool is_known = iid == IID_IUnknown || iid == IID_ISAXErrorHandler;
    *out = is_known ? this : nullptr;
    return is_known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE error(ISAXLocator* at, const wchar_t* message, HRESULT code) override {
    return Keep(at, message, code);
  }
  HRESULT STDMETHODCALLTYPE fatalError(ISAXLocator* at, const wchar_t* message, HRESULT code) override {
    return Keep(at, message, code);
  }
  HRESULT STDMETHODCALLTYPE ignorableWarning(ISAXLocator*, const wchar_t*, HRESULT) override { return S_OK; }

  XmlParseError Failure;

 private:
  HRESULT Keep(ISAXLocator* at, const wchar_t* message, HRESULT code) {
    if (Failure.Line != 0) return S_OK;
    Failure.Code = code;
    if (message) Failure.Reason = Text(Trim(FromWide(message)));
    if (at) at->getLineNumber(&Failure.Line);
    if (at) at->getColumnNumber(&Failure.LinePosition);
    return S_OK;
  }
};

XmlParseError AskReader(const VARIANT& source) {
  FirstFailure handler;
  const auto reader = Newest<ISAXXMLReader>(kReaders, IID_ISAXXMLReader);
  if (!reader) return {};
  reader->putErrorHandler(&handler);
  reader->parse(source);
  reader->putErrorHandler(nullptr);
  return handler.Failure;
}

/// The bytes as an array of VT_UI1.
ComVariant ByteArray(std::string_view bytes) {
  OwnedArray array(SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size())));
  if (!array) throw std::bad_alloc();
  void* data = nullptr;
  Require(SafeArrayAccessData(array.get(), &data));
  const Owned<SAFEARRAY*, SafeArrayUnaccessData> accessed(array.get());
  std::copy(bytes.begin(), bytes.end(), static_cast<char*>(data));
  ComVariant value;
  value.Out()->vt = VT_ARRAY | VT_UI1;
  value.Out()->parray = array.release();
  return value;
}

/// Why `document` has refused `source`, which is a BSTR or an array of bytes. Where the document does not
/// tell the place, the SAX reader is asked, which is a parser of its own and may know better.
XmlParseError MsxmlParseError(IXMLDOMDocument& document, const VARIANT& source) {
  XmlParseError failure;
  ComPtr<IXMLDOMParseError> said;
  if (SUCCEEDED(document.get_parseError(said.Out())) && said) {
    LONG code = 0, line = 0, column = 0, position = 0;
    Bstr reason;
    said->get_errorCode(&code);
    said->get_reason(reason.Out());
    said->get_line(&line);
    said->get_linepos(&column);
    said->get_filepos(&position);
    failure = {code, Text(Trim(reason.View())), line, column, position};
  }
  if (failure.Line == 0)
    if (const XmlParseError better = AskReader(source); better.Line != 0) failure = better;
  if (failure.Code == 0) failure.Code = E_FAIL;
  return failure;
}

MsxmlOutcome RefusedDtd() {
  return {{}, {.Code = E_FAIL, .Reason = StoredString(stored::kDtdRefused)}};
}

MsxmlOutcome Outcome(HRESULT result, VARIANT_BOOL is_loaded, ComPtr<IXMLDOMDocument> document,
                     const ComVariant& source) {
  if (result == S_OK && is_loaded) return {std::move(document), {}};
  return {{}, MsxmlParseError(*document.Get(), source.Get())};
}

}  // namespace

ComPtr<IXMLDOMDocument> NewMsxmlDocument() {
  auto document = Newest<IXMLDOMDocument>(kDocuments, IID_IXMLDOMDocument);
  if (!document) throw AutomationError(error::kNoSuchClass, u"Kestrune", StoredString(stored::kNoMsxml));
  document->put_async(VARIANT_FALSE);
  document->put_validateOnParse(VARIANT_FALSE);
  document->put_resolveExternals(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  if (const auto newer = document.As<IXMLDOMDocument2>(IID_IXMLDOMDocument2)) {
    SetProperty(*newer.Get(), u"SelectionLanguage", u"XPath");
    SetProperty(*newer.Get(), u"ProhibitDTD", true);
    SetProperty(*newer.Get(), u"MaxElementDepth", std::int32_t(0));  // none
  }
  return document;
}

// Bytes in memory: reading from a path or a stream is many times slower in some versions.
MsxmlOutcome LoadMsxmlFile(const Text& path) {
  if (!IsFile(path)) return {};
  std::string bytes;
  try {
    bytes = ReadFile(path);
  } catch (const AutomationError&) {
    return {};
  }
  if (XmlProlog<char>(bytes).HasDtd()) return RefusedDtd();
  const ComVariant source = ByteArray(bytes);
  auto document = NewMsxmlDocument();
  VARIANT_BOOL is_loaded = VARIANT_FALSE;
  const HRESULT result = document->load(source.Get(), &is_loaded);
  return Outcome(result, is_loaded, std::move(document), source);
}

MsxmlOutcome LoadMsxmlText(TextView xml) {
  if (XmlProlog<char16_t>(xml).HasDtd()) return RefusedDtd();
  const ComVariant source{Variant(xml)};
  auto document = NewMsxmlDocument();
  VARIANT_BOOL is_loaded = VARIANT_FALSE;
  const HRESULT result = document->loadXML(source.Get().bstrVal, &is_loaded);
  return Outcome(result, is_loaded, std::move(document), source);
}

}  // namespace kestrune
