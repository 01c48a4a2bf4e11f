// What the AppWatch page does: it lists the desktop's top-level windows that
// have a title, with the process of each, tells the class and process of the
// chosen one, raises it, or asks it to close. Nothing but a row's text
// identifies a window: every action finds its window again by title.
#pragma once

#include <cstdint>

#include "core/app_context.h"

namespace tv::ui {
class AppWatchPage;
}

namespace tv {

class AppWatchActions {
public:
    AppWatchActions(AppContext& ctx, ui::AppWatchPage& page);

    // Adds a row "<process>: <title>" to lstOpenWindows for each titled window,
    // hidden ones included, in the stacking order, unless a row reads the same
    // already. The number of rows added.
    std::int32_t listOpenWindows();

    void refresh();       // ref
    void rowChosen();     // a row of lstOpenWindows clicked
    void activate();      // act
    void closeWindow();   // cl

private:
    // The window of txtTitle, of the class lblClassName names.
    NativeWindow chosenWindow() const;

    AppContext& ctx_;
    ui::AppWatchPage& page_;
};

}  // namespace tv
