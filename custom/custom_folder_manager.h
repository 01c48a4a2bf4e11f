// What iCust does: a working copy of the twenty slots, written back to the
// settings file on "Save and Exit". Removing a folder is the exception and
// takes effect at once, with the slot's data files deleted.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/app_context.h"

namespace tv::ui {

class Control;
class CustomFolderForm;

class CustomFolderManager {
public:
    // `reloadFolderList` refills the main window's folder list (loadf).
    CustomFolderManager(AppContext& ctx, CustomFolderForm& form, std::function<void()> reloadFolderList);

    // addRem on the main window: the form as it was left, or freshly loaded
    // after it was closed.
    void show();

    void startup();
    void list1Click();
    void check1Click();
    void check2Click();
    void list2Click();
    void list4Click();
    void addFolder();     // cButton2
    void removeFolder();  // Command2
    void saveAndExit();   // Command3
    void unload();        // the close box

    std::int16_t custDirty = 0;
    bool custLoading = false;

private:
    // A column of the form: the box, its type list, and the hidden list of the
    // slots' positions it edits (args at log-on, args2 at Secure Shut Down).
    struct Column {
        Control& box;
        Control& types;
        Control& args;
    };
    Column logOn();
    Column shutDown();

    void formLoad();
    void showRow(const Column& column);
    void boxClick(const Column& column);
    void typesClick(const Column& column);

    AppContext& ctx_;
    CustomFolderForm& form_;
    std::function<void()> reloadFolderList_;
    bool loaded_ = false;
};

}  // namespace tv::ui
