/// Puts rich text into a QTextDocument.
#pragma once

#include "shell/help/rich_text.h"

class QTextDocument;

namespace shell::ui {

/// Replaces all that `document` holds by `text`.
/// Units   `pixelsPerTwip`: the length of a twip where the document is shown
void PourRichText(const help::RichText& text, double pixelsPerTwip, QTextDocument& document);

}  // namespace shell::ui
