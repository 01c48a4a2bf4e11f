#include <objbase.h>
#include <shlobj.h>

#include <vector>

#include "platform/win32/com_ref.h"
#include "platform/win32/win32_system.h"

namespace tv::win32 {

namespace {

// Calls a named member of a scripting object by late binding: a method with
// its arguments, or a property put with one value.
HRESULT invoke(IDispatch* object, const wchar_t* member, WORD how, std::vector<VARIANT> arguments,
               VARIANT* result = nullptr) {
    DISPID id = 0;
    LPOLESTR name = const_cast<LPOLESTR>(member);
    HRESULT hr = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(hr)) return hr;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if (how == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &named;
        parameters.cNamedArgs = 1;
    }
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters, result, nullptr, nullptr);
}

VARIANT textArgument(const UniqueBstr& text) {
    VARIANT v;
    ::VariantInit(&v);
    v.vt = VT_BSTR;
    v.bstrVal = text.get();
    return v;
}

bool putText(IDispatch* object, const wchar_t* property, const std::string& text) {
    const UniqueBstr value(text);
    return SUCCEEDED(invoke(object, property, DISPATCH_PROPERTYPUT, {textArgument(value)}));
}

}  // namespace

bool Win32Shortcuts::makeShellLink(const std::string& linkPath, const Link& link) {
    ComRef<IShellLinkA> shellLink;
    if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                  shellLink.putVoid())))
        return false;
    ComRef<IPersistFile> file;
    if (FAILED(shellLink->QueryInterface(IID_IPersistFile, file.putVoid()))) return false;
    if (FAILED(shellLink->SetPath(link.target.c_str()))) return false;
    if (link.workDir && FAILED(shellLink->SetWorkingDirectory(link.workDir->c_str()))) return false;
    if (link.arguments && FAILED(shellLink->SetArguments(link.arguments->c_str()))) return false;
    if (FAILED(shellLink->SetDescription(link.description.c_str()))) return false;
    if (link.iconFile && FAILED(shellLink->SetIconLocation(link.iconFile->c_str(), link.iconIndex))) return false;
    if (FAILED(shellLink->SetShowCmd(link.showCommand))) return false;
    if (FAILED(shellLink->Resolve(nullptr, 4))) return false;
    return SUCCEEDED(file->Save(wideText(linkPath).c_str(), FALSE));
}

// The arguments may be far longer than a path: the link's format allows
// 65,535 characters, and a hidden tail is where a planted link would put its
// real work.
std::optional<Shortcuts::Target> Win32Shortcuts::readShellLink(const std::string& linkPath) {
    constexpr std::size_t kArgumentChars = 65536;
    ComRef<IShellLinkA> shellLink;
    if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                  shellLink.putVoid())))
        return std::nullopt;
    ComRef<IPersistFile> file;
    if (FAILED(shellLink->QueryInterface(IID_IPersistFile, file.putVoid())) ||
        FAILED(file->Load(wideText(linkPath).c_str(), STGM_READ)))
        return std::nullopt;
    std::string path(MAX_PATH, '\0'), arguments(kArgumentChars, '\0');
    // A link to something that is no file (a printer, a web page) has no path.
    if (FAILED(shellLink->GetPath(path.data(), MAX_PATH, nullptr, 0))) path.clear();
    if (FAILED(shellLink->GetArguments(arguments.data(), static_cast<int>(kArgumentChars)))) arguments.clear();
    return Target{path.substr(0, path.find('\0')), arguments.substr(0, arguments.find('\0'))};
}

bool Win32Shortcuts::makeScriptedShortcut(const std::string& linkPath, const std::string& description,
                                          const std::string& target, const std::optional<std::string>& arguments,
                                          int windowStyle) {
    CLSID shellClass{};
    if (FAILED(::CLSIDFromProgID(L"WScript.Shell", &shellClass))) return false;
    ComRef<IDispatch> shell;
    if (FAILED(::CoCreateInstance(shellClass, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                  shell.putVoid())))
        return false;
    const UniqueBstr path(linkPath);
    VARIANT made;
    ::VariantInit(&made);
    if (FAILED(invoke(shell.get(), L"CreateShortcut", DISPATCH_METHOD, {textArgument(path)}, &made))) return false;
    if (made.vt != VT_DISPATCH || !made.pdispVal) {
        ::VariantClear(&made);
        return false;
    }
    IDispatch* shortcut = made.pdispVal;
    VARIANT style;
    ::VariantInit(&style);
    style.vt = VT_I4;
    style.lVal = windowStyle;
    const bool saved = (!arguments || putText(shortcut, L"Arguments", *arguments)) &&
                       putText(shortcut, L"Description", description) &&
                       putText(shortcut, L"TargetPath", target) &&
                       SUCCEEDED(invoke(shortcut, L"WindowStyle", DISPATCH_PROPERTYPUT, {style})) &&
                       SUCCEEDED(invoke(shortcut, L"Save", DISPATCH_METHOD, {}));
    ::VariantClear(&made);
    return saved;
}

}  // namespace tv::win32
