// A run that nobody watches (a scheduled run, a Secure Shut Down once its
// choice is made) never stops on a message box: what the box would have said
// goes into the run's report of unseen messages, which the log browser lists
// among the reports, and the answer that keeps the run safe stands in for the
// user's.
#pragma once

#include <string>

#include "core/app_context.h"
#include "platform/message_boxes.h"

namespace tv {

// The box, or in a run nobody watches its text in the report and
// `unattendedAnswer` as its answer.
int showOrLog(AppContext& ctx, const std::string& prompt, const std::string& title, unsigned style,
              int unattendedAnswer = box::Ok);

// Adds a message to the run's report of unseen messages, made at the first:
// "Data\Log\<date> unattended(<time>).log", one line of the report form, the
// heading and then each message's lines, and after a question the answer
// taken. The report is written whole after each message.
void logUnseenMessage(AppContext& ctx, const std::string& prompt, unsigned style, int answer);

}  // namespace tv
