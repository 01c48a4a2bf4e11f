#include "platform/win32/win32_renderer.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/win32/control_paint.h"
#include "platform/win32/display_scale.h"
#include "platform/win32/flat_controls.h"
#include "platform/win32/pending_texts.h"
#include "platform/win32/pictures.h"

namespace tv::win32 {
namespace {

constexpr const char* kFormClass = "TarvelonForm";
constexpr const char* kFrameClass = "TarvelonFrame";
constexpr int kFirstControlId = 1000;
constexpr int kGroupBoxId = 999;  // the group box of a frame with a caption; no control's id
constexpr UINT_PTR kTextTimer = 1;  // writes waiting texts; below every control's id

using ui::Control;
using ui::Kind;
using ui::Prop;

struct ClassAndStyle {
    const char* className;
    DWORD style;
    DWORD exStyle;
};

ClassAndStyle windowKind(Kind kind) {
    switch (kind) {
    case Kind::Label: return {"STATIC", SS_LEFT | SS_NOTIFY, 0};
    case Kind::FlatButton:
    case Kind::Image:
    case Kind::FlatCheck: return {"BUTTON", BS_OWNERDRAW | WS_TABSTOP, 0};
    case Kind::CheckBox: return {"BUTTON", BS_3STATE | BS_MULTILINE | WS_TABSTOP, 0};
    case Kind::OptionButton: return {"BUTTON", BS_RADIOBUTTON | WS_TABSTOP, 0};
    case Kind::TextBox: return {"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case Kind::ListBox:
        return {"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
                WS_EX_CLIENTEDGE};
    case Kind::CheckList:
        return {"LISTBOX",
                LBS_NOTIFY | LBS_MULTIPLESEL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT |
                    WS_VSCROLL | WS_TABSTOP,
                WS_EX_CLIENTEDGE};
    case Kind::ComboBox: return {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0};
    case Kind::TreeView:
        return {WC_TREEVIEWA, TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS | WS_TABSTOP,
                WS_EX_CLIENTEDGE};
    case Kind::ProgressBar: return {PROGRESS_CLASSA, 0, 0};
    case Kind::Frame: return {kFrameClass, 0, WS_EX_CONTROLPARENT};
    case Kind::Timer: break;
    }
    return {nullptr, 0, 0};
}

// The system's dialog font at a monitor's scale, and the same font underlined.
CaptionFonts dialogFonts(int dpi) {
    LOGFONTA font{};
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    if (::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        font = metrics.lfMessageFont;
    else
        ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    // The system gives its font at the system's scale; a monitor of another
    // scale gets it in proportion.
    font.lfHeight = ::MulDiv(font.lfHeight, dpi, systemDpi());
    CaptionFonts fonts;
    fonts.plain = ::CreateFontIndirectA(&font);
    font.lfUnderline = TRUE;
    fonts.underlined = ::CreateFontIndirectA(&font);
    return fonts;
}

bool isFlat(Kind kind) { return kind == Kind::FlatButton || kind == Kind::Image || kind == Kind::FlatCheck; }
// What Enter presses when it has the focus.
bool actsAsButton(const Control& control) {
    return control.kind() == Kind::FlatButton || control.kind() == Kind::Image || control.pressable();
}
bool isList(Kind kind) { return kind == Kind::ListBox || kind == Kind::CheckList || kind == Kind::ComboBox; }

}  // namespace

struct Win32Renderer::FormWindow {
    Win32Renderer* renderer = nullptr;
    ui::Form* form = nullptr;
    HWND hwnd = nullptr;
    Scale scale;
    std::unordered_map<const Control*, HWND> windows;
    std::unordered_map<int, Control*> byId;
    std::unordered_map<const Control*, int> idOf;
    std::unordered_map<HWND, Control*> controlOf;
    std::unordered_map<const Control*, std::vector<HTREEITEM>> treeItems;  // by node index
    ColourBrushes brushes;
    bool mirroring = false;  // set while the model writes into a window
    PendingTexts texts;       // labels' and the caption's newest texts, not yet written
    std::unordered_set<HWND> frozen;  // lists and trees growing unseen until the next write
    bool textTimerSet = false;
    bool selectedByMouse = false;  // a tree's selection moved under the button now going up
    HWND toolTips = nullptr;
    std::unordered_set<HWND> tipped;  // controls the tool tip window knows
    std::unordered_map<HWND, int> widestRow;  // of each plain list, in pixels, for its horizontal scroll bar

    static LRESULT CALLBACK formProc(HWND, UINT, WPARAM, LPARAM);
    static LRESULT CALLBACK frameProc(HWND, UINT, WPARAM, LPARAM);

    CaptionFonts fonts;  // at the window's scale, the renderer's

    void create(HINSTANCE instance);
    void rescale(int dpi, const RECT* suggested);
    void placeControl(const Control& control, HWND child);
    void createControl(Control& control, HINSTANCE instance);
    void drawItem(const DRAWITEMSTRUCT& item);
    void mirror(Control& control, Prop what);
    void mirrorForm(ui::FormProp what);
    void setTextSoon(HWND window, const std::string& text);
    void armTextTimer();
    void freezeWhileGrowing(HWND window);
    void writeTexts();
    void insertNode(Control& tree, HWND window, std::size_t node);
    void mirrorNodes(Control& tree, HWND window, Prop what);
    void mirrorToolTip(Control& control, HWND window);
    void widenFor(HWND list, const std::string* first, const std::string* last);
    void command(int id, int code);
    void notify(const NMHDR& header);
    void dialogKey(int id);
    bool handleControlMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void ticksChanged(Control& control, HWND child);
    void timer(int id);
    void forget();
};

namespace {

void registerClasses(HINSTANCE instance) {
    static bool registered = false;
    if (registered) return;
    registered = true;
    INITCOMMONCONTROLSEX common{sizeof common, ICC_PROGRESS_CLASS | ICC_TREEVIEW_CLASSES |
                                                   ICC_STANDARD_CLASSES};
    ::InitCommonControlsEx(&common);

    WNDCLASSA formClass{};
    formClass.lpfnWndProc = Win32Renderer::FormWindow::formProc;
    formClass.hInstance = instance;
    formClass.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
    formClass.hIcon = ::LoadIconA(instance, MAKEINTRESOURCEA(1));
    formClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    formClass.lpszClassName = kFormClass;
    ::RegisterClassA(&formClass);

    WNDCLASSA frameClass = formClass;
    frameClass.lpfnWndProc = Win32Renderer::FormWindow::frameProc;
    frameClass.hIcon = nullptr;
    frameClass.lpszClassName = kFrameClass;
    ::RegisterClassA(&frameClass);
}

Win32Renderer::FormWindow* formWindowOf(HWND hwnd) {
    return reinterpret_cast<Win32Renderer::FormWindow*>(::GetWindowLongPtrA(hwnd, GWLP_USERDATA));
}

void setName(HWND hwnd, const std::string& name) {
    const ATOM atom = ::GlobalAddAtomA(name.c_str());
    ::SetPropA(hwnd, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

void dropName(HWND hwnd) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::RemovePropA(hwnd, kNameProperty)));
    if (atom) ::GlobalDeleteAtom(atom);
}

BOOL CALLBACK dropNameOfChild(HWND child, LPARAM) {
    dropName(child);
    return TRUE;
}

int checkState(int value) {
    return value == 2 ? BST_INDETERMINATE : value ? BST_CHECKED : BST_UNCHECKED;
}

// A check box in colours of its own is drawn by the renderer, any other by the system.
DWORD checkBoxType(const Control& box) { return hasOwnColours(box) ? BS_OWNERDRAW : BS_3STATE; }

}  // namespace

Win32Renderer::Win32Renderer(HINSTANCE instance) : instance_(instance) { registerClasses(instance_); }

Win32Renderer::~Win32Renderer() {
    for (auto& window : windows_) window->forget();
    for (const auto& [dpi, fonts] : fonts_) {
        ::DeleteObject(fonts.plain);
        ::DeleteObject(fonts.underlined);
    }
}

const CaptionFonts& Win32Renderer::fontsFor(int dpi) {
    auto found = fonts_.find(dpi);
    if (found == fonts_.end()) found = fonts_.emplace(dpi, dialogFonts(dpi)).first;
    return found->second;
}

void Win32Renderer::attach(ui::Form& form) {
    auto window = std::make_unique<FormWindow>();
    window->renderer = this;
    window->form = &form;
    window->create(instance_);
    windows_.push_back(std::move(window));
}

namespace {
constexpr DWORD kFormStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kFormExStyle = WS_EX_CONTROLPARENT;
}  // namespace

// The window opens in the middle of the screen at the system's scale, and
// takes the scale of the monitor it then stands on.
void Win32Renderer::FormWindow::create(HINSTANCE instance) {
    scale.dpi = systemDpi();
    fonts = renderer->fontsFor(scale.dpi);
    const RECT frame = frameFor(scale.rect(form->clientArea()), kFormStyle, kFormExStyle, scale.dpi);
    const int width = frame.right - frame.left, height = frame.bottom - frame.top;
    const int left = (::GetSystemMetrics(SM_CXSCREEN) - width) / 2;
    const int top = (::GetSystemMetrics(SM_CYSCREEN) - height) / 2;
    hwnd = ::CreateWindowExA(kFormExStyle, kFormClass, form->caption().c_str(), kFormStyle, left, top, width,
                             height, nullptr, nullptr, instance, nullptr);
    if (!hwnd) return;
    ::SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    setName(hwnd, form->name());
    form->setNativeWindow(reinterpret_cast<NativeWindow>(hwnd));
    if (const int dpi = windowDpi(hwnd); dpi != scale.dpi) rescale(dpi, nullptr);

    for (const auto& control : form->controls()) createControl(*control, instance);
    // A group box is made with its frame, before the frame's controls, and a
    // newer child goes beneath the older ones: the box would sit above the
    // controls it surrounds, and they, clipped against it, would never show.
    for (const auto& [control, child] : windows)
        if (HWND group = control->kind() == Kind::Frame ? ::GetDlgItem(child, kGroupBoxId) : nullptr)
            ::SetWindowPos(group, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    form->setSink([this](ui::Form&, ui::FormProp what) { mirrorForm(what); });
    if (form->visible()) mirrorForm(ui::FormProp::Visible);
}

void Win32Renderer::FormWindow::createControl(Control& control, HINSTANCE instance) {
    const int id = kFirstControlId + static_cast<int>(byId.size());
    byId[id] = &control;
    idOf[&control] = id;
    control.setSink([this](Control& c, Prop what) { mirror(c, what); });
    if (control.kind() == Kind::Timer) {
        mirror(control, Prop::Interval);
        return;
    }
    // A pressable label is a button drawn as a label, so that the keyboard reaches it.
    const ClassAndStyle kind = control.pressable() ? ClassAndStyle{"BUTTON", BS_OWNERDRAW | WS_TABSTOP, 0}
                                                   : windowKind(control.kind());
    HWND parent = control.parent() ? windows[control.parent()] : hwnd;
    const RECT b = scale.rect(control.bounds());
    DWORD style = WS_CHILD | WS_CLIPSIBLINGS | kind.style | (control.centred() && !control.pressable() ? SS_CENTER : 0) |
                  (control.visible() ? WS_VISIBLE : 0) |
                  (control.enabled() ? 0 : WS_DISABLED);
    if (control.kind() == Kind::CheckBox) style = (style & ~BS_TYPEMASK) | checkBoxType(control);
    HWND child = ::CreateWindowExA(kind.exStyle, kind.className, control.caption().c_str(), style,
                                   b.left, b.top, b.right - b.left, b.bottom - b.top, parent,
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance,
                                   nullptr);
    if (!child) return;
    windows[&control] = child;
    controlOf[child] = &control;
    if (control.kind() == Kind::Frame) ::SetWindowLongPtrA(child, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.plain), FALSE);
    if (control.kind() == Kind::Frame && !control.caption().empty()) {
        // A frame with a caption shows as a group: a group box around its
        // controls, which lets the mouse through to them.
        HWND group = ::CreateWindowExA(0, "BUTTON", control.caption().c_str(), WS_CHILD | WS_VISIBLE | BS_GROUPBOX, 0,
                                       0, b.right - b.left, b.bottom - b.top, child,
                                       reinterpret_cast<HMENU>(static_cast<INT_PTR>(kGroupBoxId)), instance, nullptr);
        ::SendMessageA(group, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.plain), FALSE);
    }
    setName(child, control.name());
    followInput(child, control, *form);
    mirror(control, Prop::Items);
    mirror(control, Prop::Value);
    if (control.kind() == Kind::ProgressBar) mirror(control, Prop::Range);
    if (!control.toolTip().empty()) mirror(control, Prop::ToolTip);
}

void Win32Renderer::FormWindow::mirror(Control& control, Prop what) {
    if (control.kind() == Kind::Timer) {
        const UINT_PTR timerId = static_cast<UINT_PTR>(idOf[&control]);
        if (control.enabled() && control.value() > 0)
            ::SetTimer(hwnd, timerId, static_cast<UINT>(control.value()), nullptr);
        else
            ::KillTimer(hwnd, timerId);
        return;
    }
    const auto found = windows.find(&control);
    if (found == windows.end()) return;
    HWND child = found->second;
    mirroring = true;
    switch (what) {
    case Prop::Caption:
        if (control.kind() == Kind::Label)
            setTextSoon(child, control.caption());
        else
            ::SetWindowTextA(child, control.caption().c_str());
        if (HWND group = control.kind() == Kind::Frame ? ::GetDlgItem(child, kGroupBoxId) : nullptr)
            ::SetWindowTextA(group, control.caption().c_str());
        break;
    case Prop::Visible: ::ShowWindow(child, control.visible() ? SW_SHOWNA : SW_HIDE); break;
    case Prop::Enabled: ::EnableWindow(child, control.enabled()); break;
    case Prop::Colour:
        if (control.kind() == Kind::CheckBox) {
            ::SendMessageA(child, BM_SETSTYLE, checkBoxType(control), FALSE);
            ::SendMessageA(child, BM_SETCHECK, checkState(control.value()), 0);
        }
        // A label lit under the mouse is underlined: its font says so.
        if (control.kind() == Kind::Label)
            ::SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(control.underlined() ? fonts.underlined : fonts.plain),
                           FALSE);
        ::InvalidateRect(child, nullptr, TRUE);
        break;
    case Prop::Bounds: ::InvalidateRect(child, nullptr, TRUE); break;
    case Prop::Value:
    case Prop::Selection:
        switch (control.kind()) {
        case Kind::FlatCheck: ::InvalidateRect(child, nullptr, TRUE); break;
        case Kind::CheckBox:
        case Kind::OptionButton:
            ::SendMessageA(child, BM_SETCHECK, checkState(control.value()), 0);
            ::InvalidateRect(child, nullptr, TRUE);  // drawn by the renderer, it does not draw itself
            break;
        case Kind::ListBox: ::SendMessageA(child, LB_SETCURSEL, control.value(), 0); break;
        case Kind::ComboBox: ::SendMessageA(child, CB_SETCURSEL, control.value(), 0); break;
        case Kind::ProgressBar: ::SendMessageA(child, PBM_SETPOS, control.value(), 0); break;
        case Kind::TreeView: {
            const auto& items = treeItems[&control];
            const std::size_t node = control.selectedNode();
            ::SendMessageA(child, TVM_SELECTITEM, TVGN_CARET,
                           reinterpret_cast<LPARAM>(node < items.size() ? items[node] : nullptr));
            break;
        }
        default: break;
        }
        break;
    case Prop::Range: ::SendMessageA(child, PBM_SETRANGE32, 0, control.maximum()); break;
    case Prop::Nodes:
    case Prop::NodeAdded: mirrorNodes(control, child, what); break;
    case Prop::ToolTip: mirrorToolTip(control, child); break;
    case Prop::Picture: ::InvalidateRect(child, nullptr, TRUE); break;
    case Prop::Alignment:
        if (control.pressable()) {
            ::InvalidateRect(child, nullptr, TRUE);
        } else if (control.kind() == Kind::Label) {
            const LONG_PTR style = ::GetWindowLongPtrA(child, GWL_STYLE) & ~static_cast<LONG_PTR>(SS_TYPEMASK);
            ::SetWindowLongPtrA(child, GWL_STYLE, style | (control.centred() ? SS_CENTER : SS_LEFT));
            ::InvalidateRect(child, nullptr, TRUE);
        }
        break;
    case Prop::Ticks:
        if (control.kind() == Kind::CheckList)
            for (std::size_t item = 0; item < control.items().size(); ++item)
                ::SendMessageA(child, LB_SETSEL, control.ticked(item), static_cast<LPARAM>(item));
        break;
    case Prop::Items:
        if (isList(control.kind())) {
            const bool list = control.kind() != Kind::ComboBox;
            ::SendMessageA(child, list ? LB_RESETCONTENT : CB_RESETCONTENT, 0, 0);
            std::size_t bytes = 0;
            for (const auto& item : control.items()) bytes += item.size() + 1;
            ::SendMessageA(child, list ? LB_INITSTORAGE : CB_INITSTORAGE, control.items().size(), bytes);
            for (const auto& item : control.items())
                ::SendMessageA(child, list ? LB_ADDSTRING : CB_ADDSTRING, 0,
                               reinterpret_cast<LPARAM>(item.c_str()));
            if (control.kind() == Kind::ListBox) {
                widestRow[child] = 0;
                widenFor(child, control.items().data(), control.items().data() + control.items().size());
            }
            mirror(control, Prop::Selection);  // a new content keeps the chosen item and the ticks
            mirror(control, Prop::Ticks);
        }
        break;
    case Prop::ItemChanged:
        // One row in place, as a warning row that gets its ") " when chosen;
        // the choice and the tick stay where they were.
        if (isList(control.kind()) && control.changedItem() < control.items().size()) {
            const bool list = control.kind() != Kind::ComboBox;
            const auto index = static_cast<WPARAM>(control.changedItem());
            ::SendMessageA(child, list ? LB_DELETESTRING : CB_DELETESTRING, index, 0);
            ::SendMessageA(child, list ? LB_INSERTSTRING : CB_INSERTSTRING, index,
                           reinterpret_cast<LPARAM>(control.items()[index].c_str()));
            if (control.kind() == Kind::ListBox) widenFor(child, &control.items()[index], &control.items()[index] + 1);
            mirror(control, Prop::Selection);
            if (control.kind() == Kind::CheckList)
                ::SendMessageA(child, LB_SETSEL, control.ticked(index), static_cast<LPARAM>(index));
        }
        break;
    case Prop::ItemAdded:
        if (isList(control.kind())) {
            if (control.kind() != Kind::ComboBox) freezeWhileGrowing(child);
            ::SendMessageA(child, control.kind() == Kind::ComboBox ? CB_ADDSTRING : LB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(control.items().back().c_str()));
            if (control.kind() == Kind::ListBox) widenFor(child, &control.items().back(), &control.items().back() + 1);
        }
        break;
    case Prop::Interval: break;
    }
    mirroring = false;
}

void Win32Renderer::FormWindow::mirrorForm(ui::FormProp what) {
    if (!hwnd) return;
    switch (what) {
    case ui::FormProp::Caption: setTextSoon(hwnd, form->caption()); break;
    case ui::FormProp::Visible:
        writeTexts();  // a window comes up with its current texts
        ::ShowWindow(hwnd, form->visible() ? (form->minimised() ? SW_SHOWMINNOACTIVE : SW_SHOW)
                                           : SW_HIDE);
        if (form->visible()) ::UpdateWindow(hwnd);
        break;
    case ui::FormProp::Minimised:
        if (form->visible()) ::ShowWindow(hwnd, form->minimised() ? SW_MINIMIZE : SW_RESTORE);
        break;
    case ui::FormProp::Destroyed: forget(); break;
    }
}

// The texts are written when their interval has passed; otherwise a timer
// writes the last of them once the changes stop.
void Win32Renderer::FormWindow::setTextSoon(HWND window, const std::string& text) {
    if (texts.set(window, text)) return writeTexts();
    armTextTimer();
}

void Win32Renderer::FormWindow::armTextTimer() {
    if (!textTimerSet) textTimerSet = ::SetTimer(hwnd, kTextTimer, PendingTexts::kIntervalMs, nullptr) != 0;
}

// A list or tree that grows by one row at a time, as during a registry pass,
// is drawn again with the next texts rather than for every row.
void Win32Renderer::FormWindow::freezeWhileGrowing(HWND window) {
    if (!frozen.insert(window).second) return;
    ::SendMessageA(window, WM_SETREDRAW, FALSE, 0);
    armTextTimer();
}

void Win32Renderer::FormWindow::writeTexts() {
    mirroring = true;
    texts.flush();
    for (HWND window : frozen) {
        ::SendMessageA(window, WM_SETREDRAW, TRUE, 0);
        ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
    frozen.clear();
    mirroring = false;
    if (textTimerSet) ::KillTimer(hwnd, kTextTimer);
    textTimerSet = false;
}

void Win32Renderer::FormWindow::insertNode(Control& tree, HWND window, std::size_t node) {
    auto& items = treeItems[&tree];
    const ui::TreeNode& added = tree.nodes()[node];
    TVINSERTSTRUCTA insert{};
    insert.hParent = added.parent < items.size() ? items[added.parent] : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = const_cast<char*>(added.text.c_str());
    insert.item.lParam = static_cast<LPARAM>(node);
    items.resize(node + 1);
    items[node] = reinterpret_cast<HTREEITEM>(::SendMessageA(window, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
}

void Win32Renderer::FormWindow::mirrorNodes(Control& tree, HWND window, Prop what) {
    if (what == Prop::Nodes) {
        ::SendMessageA(window, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
        treeItems[&tree].clear();
        for (std::size_t node = 0; node < tree.nodes().size(); ++node) insertNode(tree, window, node);
        return;
    }
    freezeWhileGrowing(window);
    insertNode(tree, window, tree.nodes().size() - 1);
}

// A row wider than the list gets a horizontal scroll bar to reach its end
// (a registry warning row is often longer than the list is wide).
void Win32Renderer::FormWindow::widenFor(HWND list, const std::string* first, const std::string* last) {
    if (first == last) return;
    HDC dc = ::GetDC(list);
    if (!dc) return;
    HGDIOBJ old = ::SelectObject(dc, fonts.plain);
    int widest = widestRow[list];
    for (const std::string* row = first; row != last; ++row) {
        SIZE size{};
        ::GetTextExtentPoint32A(dc, row->c_str(), static_cast<int>(std::strlen(row->c_str())), &size);
        widest = std::max(widest, static_cast<int>(size.cx) + scale.px(8));
    }
    ::SelectObject(dc, old);
    ::ReleaseDC(list, dc);
    if (widest == widestRow[list]) return;
    widestRow[list] = widest;
    ::SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
}

void Win32Renderer::FormWindow::mirrorToolTip(Control& control, HWND window) {
    if (!toolTips) {
        toolTips = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hwnd, nullptr,
                                     ::GetModuleHandleA(nullptr), nullptr);
        if (!toolTips) return;
    }
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;  // the size every version of the common controls knows
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = hwnd;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<char*>(control.toolTip().c_str());
    const bool known = !tipped.insert(window).second;
    ::SendMessageA(toolTips, known ? TTM_UPDATETIPTEXTA : TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void Win32Renderer::FormWindow::command(int id, int code) {
    if (mirroring) return;
    const auto found = byId.find(id);
    if (found == byId.end()) return;
    Control& control = *found->second;
    HWND child = windows[&control];
    switch (control.kind()) {
    case Kind::FlatButton:
    case Kind::Image:
    case Kind::Label:
        // STN_CLICKED has the number of BN_CLICKED; a flat control's second
        // click of a double click is a click as well.
        if (code == BN_CLICKED || (isFlat(control.kind()) && code == BN_DOUBLECLICKED)) control.userClick();
        break;
    case Kind::FlatCheck:
    case Kind::CheckBox:
        // An owner-drawn button reports the second click of a double click as
        // a double click; a click it is all the same.
        if (code == BN_CLICKED || code == BN_DOUBLECLICKED) control.userSetValue(control.value() == 1 ? 0 : 1);
        break;
    case Kind::OptionButton:
        if (code == BN_CLICKED) control.userSetValue(1);
        break;
    case Kind::TextBox:
        if (code == EN_CHANGE) {
            std::string text(static_cast<std::size_t>(::GetWindowTextLengthA(child)) + 1, '\0');
            text.resize(static_cast<std::size_t>(::GetWindowTextA(child, text.data(), static_cast<int>(text.size()))));
            control.userEditText(std::move(text));
        }
        break;
    case Kind::ListBox:
        if (code == LBN_SELCHANGE)
            control.userSetValue(static_cast<int>(::SendMessageA(child, LB_GETCURSEL, 0, 0)));
        else if (code == LBN_DBLCLK)
            control.userDoubleClick();
        break;
    case Kind::CheckList:
        if (code == LBN_SELCHANGE) ticksChanged(control, child);
        break;
    case Kind::ComboBox:
        if (code == CBN_SELCHANGE)
            control.userSetValue(static_cast<int>(::SendMessageA(child, CB_GETCURSEL, 0, 0)));
        break;
    default: break;
    }
}

// A tree's selection, opening, keys and double clicks. A click on the node
// that is already chosen counts as a node click too, as one on another does.
void Win32Renderer::FormWindow::notify(const NMHDR& header) {
    if (mirroring) return;
    const auto found = controlOf.find(header.hwndFrom);
    if (found == controlOf.end() || found->second->kind() != Kind::TreeView) return;
    Control& tree = *found->second;
    const auto& view = reinterpret_cast<const NMTREEVIEWA&>(header);
    switch (header.code) {
    case TVN_SELCHANGEDA:
    case TVN_SELCHANGEDW:
        selectedByMouse = view.action == TVC_BYMOUSE;
        tree.userSelectNode(static_cast<std::size_t>(view.itemNew.lParam));
        break;
    case TVN_ITEMEXPANDEDA:
    case TVN_ITEMEXPANDEDW:
        tree.userExpandNode(static_cast<std::size_t>(view.itemNew.lParam), (view.action & TVE_EXPAND) != 0);
        break;
    case TVN_KEYDOWN: tree.userKeyDown(reinterpret_cast<const NMTVKEYDOWN&>(header).wVKey); break;
    case NM_DBLCLK: tree.userDoubleClick(); break;
    case NM_CLICK: {
        if (std::exchange(selectedByMouse, false)) break;
        TVHITTESTINFO hit{};
        const DWORD where = ::GetMessagePos();
        hit.pt = {static_cast<short>(LOWORD(where)), static_cast<short>(HIWORD(where))};
        ::ScreenToClient(header.hwndFrom, &hit.pt);
        const auto item = reinterpret_cast<HTREEITEM>(::SendMessageA(header.hwndFrom, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
        const std::size_t node = tree.selectedNode();
        const auto& items = treeItems[&tree];
        if (item && (hit.flags & TVHT_ONITEM) && node < items.size() && items[node] == item) tree.userSelectNode(node);
        break;
    }
    default: break;
    }
}

// Enter and Esc, as the system's dialog handling reports them.
void Win32Renderer::FormWindow::dialogKey(int id) {
    if (id == IDCANCEL) {
        if (form->cancelButton)
            form->cancelButton->userKeyPress();
        else if (form->closesOnEscape)
            form->userClose();
        return;
    }
    const auto focused = controlOf.find(::GetFocus());
    if (focused != controlOf.end() && actsAsButton(*focused->second))
        focused->second->userKeyPress();
    else if (form->defaultButton)
        form->defaultButton->userKeyPress();
}

// A click or the space bar flipped the selection of a row, which is its tick.
void Win32Renderer::FormWindow::ticksChanged(Control& control, HWND child) {
    for (std::size_t item = 0; item < control.items().size(); ++item) {
        const bool ticked = ::SendMessageA(child, LB_GETSEL, item, 0) > 0;
        if (ticked != control.ticked(item)) control.userTickItem(item, ticked);
    }
}

// Colours and the rows of check lists, for the form and its frames alike.
bool Win32Renderer::FormWindow::handleControlMessage(UINT message, WPARAM wParam, LPARAM lParam,
                                                     LRESULT& result) {
    switch (message) {
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX: {
        const auto found = controlOf.find(reinterpret_cast<HWND>(lParam));
        if (found == controlOf.end()) return false;
        HBRUSH brush = paintColours(reinterpret_cast<HDC>(wParam), *found->second, brushes);
        if (!brush) return false;
        result = reinterpret_cast<LRESULT>(brush);
        return true;
    }
    case WM_MEASUREITEM:
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = static_cast<UINT>(scale.px(kCheckListRowHeight));
        result = TRUE;
        return true;
    case WM_DRAWITEM:
        drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        result = TRUE;
        return true;
    default: return false;
    }
}

void Win32Renderer::FormWindow::drawItem(const DRAWITEMSTRUCT& item) {
    const auto found = controlOf.find(item.hwndItem);
    if (found == controlOf.end()) return;
    const Control& control = *found->second;
    switch (control.kind()) {
    case Kind::CheckList: drawCheckListRow(item, control, scale); break;
    case Kind::CheckBox: drawColouredCheckBox(item, control, fonts.plain, brushes, scale); break;
    case Kind::FlatCheck: drawFlatCheck(item, control, fonts, scale); break;
    case Kind::Image:
        if (!control.picture().empty() && drawPicture(item, control.picture(), scale)) break;
        drawFlatButton(item, control, fonts.plain, brushes, scale);
        break;
    case Kind::FlatButton: drawFlatButton(item, control, fonts.plain, brushes, scale); break;
    case Kind::Label: drawPressableLabel(item, control, fonts, brushes); break;
    default: break;
    }
}

// The window moved to a monitor of another scale (or opened on one): its
// frame takes the rectangle the system suggests, or keeps its middle, and
// every control its place and font at the new scale.
void Win32Renderer::FormWindow::rescale(int dpi, const RECT* suggested) {
    scale.dpi = dpi;
    fonts = renderer->fontsFor(dpi);
    RECT frame;
    if (suggested) {
        frame = *suggested;
    } else {
        RECT now{};
        ::GetWindowRect(hwnd, &now);
        const RECT wanted = frameFor(scale.rect(form->clientArea()), kFormStyle, kFormExStyle, dpi);
        const int width = wanted.right - wanted.left, height = wanted.bottom - wanted.top;
        const int left = (now.left + now.right - width) / 2, top = (now.top + now.bottom - height) / 2;
        frame = {left, top, left + width, top + height};
    }
    ::SetWindowPos(hwnd, nullptr, frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    // A frame whose borders the system draws at another scale than it
    // suggested (Windows 8.1, Wine) is corrected by what the client area lacks.
    RECT client{};
    const RECT wanted = scale.rect(form->clientArea());
    if (!::IsIconic(hwnd) && ::GetClientRect(hwnd, &client) &&
        (client.right != wanted.right - wanted.left || client.bottom != wanted.bottom - wanted.top))
        ::SetWindowPos(hwnd, nullptr, 0, 0, frame.right - frame.left + wanted.right - wanted.left - client.right,
                       frame.bottom - frame.top + wanted.bottom - wanted.top - client.bottom,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    for (const auto& [control, child] : windows) placeControl(*control, child);
    ::RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void Win32Renderer::FormWindow::placeControl(const Control& control, HWND child) {
    const RECT b = scale.rect(control.bounds());
    ::SetWindowPos(child, nullptr, b.left, b.top, b.right - b.left, b.bottom - b.top, SWP_NOZORDER | SWP_NOACTIVATE);
    const bool lit = control.kind() == Kind::Label && control.underlined();
    ::SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(lit ? fonts.underlined : fonts.plain), FALSE);
    if (HWND group = control.kind() == Kind::Frame ? ::GetDlgItem(child, kGroupBoxId) : nullptr) {
        ::SetWindowPos(group, nullptr, 0, 0, b.right - b.left, b.bottom - b.top, SWP_NOZORDER | SWP_NOACTIVATE);
        ::SendMessageA(group, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.plain), FALSE);
    }
    if (control.kind() == Kind::CheckList) ::SendMessageA(child, LB_SETITEMHEIGHT, 0, scale.px(kCheckListRowHeight));
    if (control.kind() == Kind::ListBox) {
        widestRow[child] = 0;
        widenFor(child, control.items().data(), control.items().data() + control.items().size());
    }
}

void Win32Renderer::FormWindow::timer(int id) {
    const auto found = byId.find(id);
    if (found != byId.end()) found->second->userTick();
}

void Win32Renderer::FormWindow::forget() {
    if (!hwnd) return;
    for (const auto& control : form->controls()) control->setSink(nullptr);
    form->setSink(nullptr);
    ::EnumChildWindows(hwnd, dropNameOfChild, 0);
    dropName(hwnd);
    ::SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
    texts.clear();
    frozen.clear();
    controlOf.clear();
    ::DestroyWindow(hwnd);
    hwnd = nullptr;
}

LRESULT CALLBACK Win32Renderer::FormWindow::formProc(HWND hwnd, UINT message, WPARAM wParam,
                                                     LPARAM lParam) {
    FormWindow* window = formWindowOf(hwnd);
    if (window) {
        switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
                window->dialogKey(LOWORD(wParam));
            else
                window->command(LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_NOTIFY: window->notify(*reinterpret_cast<const NMHDR*>(lParam)); return 0;
        case WM_TIMER:
            if (wParam == kTextTimer)
                window->writeTexts();
            else
                window->timer(static_cast<int>(wParam));
            return 0;
        case WM_CLOSE: window->form->userClose(); return 0;
        case kDpiChanged:
            window->rescale(HIWORD(wParam), reinterpret_cast<const RECT*>(lParam));
            return 0;

        case WM_MOUSEMOVE: window->form->userMouseMove(); break;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: window->form->userKeyDown(static_cast<int>(wParam)); break;
        case WM_KEYUP:
        case WM_SYSKEYUP: window->form->userKeyUp(static_cast<int>(wParam)); break;
        default: break;
        }
        LRESULT result = 0;
        if (window->handleControlMessage(message, wParam, lParam, result)) return result;
    }
    return ::DefWindowProcA(hwnd, message, wParam, lParam);
}

// A frame passes its controls' notifications on to its form.
LRESULT CALLBACK Win32Renderer::FormWindow::frameProc(HWND hwnd, UINT message, WPARAM wParam,
                                                      LPARAM lParam) {
    FormWindow* window = formWindowOf(hwnd);
    if (window && message == WM_COMMAND) {
        window->command(LOWORD(wParam), HIWORD(wParam));
        return 0;
    }
    if (window && message == WM_NOTIFY) {
        window->notify(*reinterpret_cast<const NMHDR*>(lParam));
        return 0;
    }
    LRESULT result = 0;
    if (window && window->handleControlMessage(message, wParam, lParam, result)) return result;
    return ::DefWindowProcA(hwnd, message, wParam, lParam);
}

}  // namespace tv::win32
