#include "avshell/scanner_choice_form.h"

namespace tv::ui {
namespace {

// One scanner's rows, from `top` down: program and file box, arguments, catalogue.
constexpr Bounds program(int top) { return {12, top, 360, 22}; }
constexpr Bounds chooser(int top) { return {380, top - 1, 88, 24}; }
constexpr Bounds argumentsLabel(int top) { return {12, top + 31, 216, 18}; }
constexpr Bounds arguments(int top) { return {232, top + 28, 236, 22}; }
constexpr Bounds catalogue(int top) { return {12, top + 58, 300, 24}; }

constexpr int kFirst = 34, kSecond = 134;

}  // namespace

ScannerChoiceForm::ScannerChoiceForm()
    : Form("s_avir", "Anti-Virus/Trojan Selection Screen", {0, 0, 480, 272}),
      Label8(add(Kind::Label, "Label8", {12, 10, 456, 18}, "Your Anti-Virus Program (Select upto 2):")),
      Text5(add(Kind::TextBox, "Text5", program(kFirst), kNoScannerChosen)),
      cChoose(add(Kind::FlatButton, "cChoose", chooser(kFirst), "Choose...")),
      Label14(add(Kind::Label, "Label14", argumentsLabel(kFirst), "Optional Command Line Arguments:")),
      Text6(add(Kind::TextBox, "Text6", arguments(kFirst))),
      chlpFind(add(Kind::FlatButton, "chlpFind", catalogue(kFirst), "Help me find the correct exe file...")),
      Text1(add(Kind::TextBox, "Text1", program(kSecond), kNoScannerChosen)),
      cButton10(add(Kind::FlatButton, "cButton10", chooser(kSecond), "Choose...")),
      Label1(add(Kind::Label, "Label1", argumentsLabel(kSecond), "Optional Command Line Arguments:")),
      Text2(add(Kind::TextBox, "Text2", arguments(kSecond))),
      cButton1(add(Kind::FlatButton, "cButton1", catalogue(kSecond), "Help me find the correct exe file...")),
      cButton3(add(Kind::FlatButton, "cButton3", {268, 232, 96, 28}, "Save")),
      cButton2(add(Kind::FlatButton, "cButton2", {372, 232, 96, 28}, "Cancel")) {
    defaultButton = &cButton3;
    cancelButton = &cButton2;
    settle();
}

bool ScannerChoiceForm::firstChanged() const {
    return Text5.caption() != settled_[0] || Text6.caption() != settled_[1];
}

bool ScannerChoiceForm::secondChanged() const {
    return Text1.caption() != settled_[2] || Text2.caption() != settled_[3];
}

void ScannerChoiceForm::settle(bool first, bool second) {
    if (first) settled_[0] = Text5.caption(), settled_[1] = Text6.caption();
    if (second) settled_[2] = Text1.caption(), settled_[3] = Text2.caption();
}

}  // namespace tv::ui
