// Fonts, line styles, area styles and the place of forms in a store, and references to components.

#include <kxgraph/persist/Kxoutfit.h>

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/series/Kxdraw.h>

namespace kx {

namespace {

std::string Key(std::string_view Ident, const char* Suffix) { return std::string(Ident) + Suffix; }

/// A window that lies wholly off the screen, as after a change of screens, could not be reached.
void CheckPlacement(TForm& Form) {
    const TRect& bounds = Form.GetNormalBounds();
    if (Screen.GetHeight() < bounds.Top || Screen.GetWidth() < bounds.Left || bounds.Bottom < 0 ||
        bounds.Right < 0)
        Form.SetPosition(poScreenCenter);
}

} // namespace

void TKxIniList::ReadFont(std::string_view Section, std::string_view Ident, TFont& Font) const {
    LoadRows(Font, Section, *this, Key(Ident, "."));
}

void TKxIniList::WriteFont(std::string_view Section, std::string_view Ident, const TFont& Font) {
    SaveRows(Font, Section, *this, Key(Ident, "."));
}

void TKxIniList::ReadLine(std::string_view Section, std::string_view Ident, TKxLineStyle& Style) const {
    LoadRows(Style, Section, *this, Key(Ident, "."));
}

void TKxIniList::WriteLine(std::string_view Section, std::string_view Ident, const TKxLineStyle& Style) {
    SaveRows(Style, Section, *this, Key(Ident, "."));
}

void TKxIniList::ReadArea(std::string_view Section, std::string_view Ident, TKxAreaStyle& Style) const {
    LoadRows(Style, Section, *this, Key(Ident, "."));
}

void TKxIniList::WriteArea(std::string_view Section, std::string_view Ident, const TKxAreaStyle& Style) {
    SaveRows(Style, Section, *this, Key(Ident, "."));
}

void TKxIniList::ReadFormPrms(std::string_view Section, std::string_view Ident, TForm& Form) const {
    const int saved = ReadInteger(Section, Key(Ident, ".State"), -1);
    const bool isState = saved >= 0 && saved < int(CEnumNames<TWindowState>.size());
    const TWindowState state = isState ? TWindowState(saved) : Form.GetWindowState();
    const TRect now = Form.GetNormalBounds();
    const int top = ReadInteger(Section, Key(Ident, ".Top"), now.Top);
    const int left = ReadInteger(Section, Key(Ident, ".Left"), now.Left);
    const int height = ReadInteger(Section, Key(Ident, ".Height"), now.Height());
    const int width = ReadInteger(Section, Key(Ident, ".Width"), now.Width());
    Form.SetWindowState(wsNormal);
    Form.SetBounds(left, top, width, height);
    CheckPlacement(Form);
    Form.SetWindowState(state);
}

void TKxIniList::WriteFormPrms(std::string_view Section, std::string_view Ident, const TForm& Form) {
    const TRect& bounds = Form.GetNormalBounds();
    WriteInteger(Section, Key(Ident, ".State"), Form.GetWindowState());
    WriteInteger(Section, Key(Ident, ".Top"), bounds.Top);
    WriteInteger(Section, Key(Ident, ".Left"), bounds.Left);
    WriteInteger(Section, Key(Ident, ".Height"), bounds.Height());
    WriteInteger(Section, Key(Ident, ".Width"), bounds.Width());
}

void TKxIniList::ReadFormPos(std::string_view Section, std::string_view Ident, TForm& Form) const {
    const TRect now = Form.GetNormalBounds();
    const int top = ReadInteger(Section, Key(Ident, ".Top"), now.Top);
    const int left = ReadInteger(Section, Key(Ident, ".Left"), now.Left);
    Form.SetBounds(left, top, now.Width(), now.Height());
    CheckPlacement(Form);
}

void TKxIniList::WriteComponentRef(std::string_view Section, std::string_view Ident,
                                   const TComponent* Component) {
    std::string path;
    if (Component && !Component->GetName().empty()) {
        path = Component->GetName();
        for (const TComponent* owner = Component->GetOwner(); owner; owner = owner->GetOwner())
            path.insert(0, ".").insert(0, owner->GetName());
        if (path.front() == '.') path.erase(0, 1); // left by the application, which has no name
    }
    WriteString(Section, Ident, path);
}

TComponent* TKxIniList::FindComponentRef(std::string_view Section, std::string_view Ident) const {
    const std::string path = ReadString(Section, Ident, "");
    if (path.empty()) return nullptr;
    TComponent* component = &TApplication::Instance();
    for (std::size_t start = 0, point = 0; component && point != path.npos; start = point + 1) {
        point = path.find('.', start);
        component = component->FindComponent(std::string_view(path).substr(start, point - start));
    }
    return component;
}

} // namespace kx
