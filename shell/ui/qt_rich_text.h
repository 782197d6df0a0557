/// Puts rich text into a QTextDocument.
#pragma once

#include "shell/help/rich_text.h"

class QTextDocument;

namespace shell::ui {

/// Replaces the contents of `document` with `text`.
/// Units   `pixelsPerTwip`: the length of a twip on the screen, in pixels
void PourRichText(const help::RichText& text, double pixelsPerTwip, QTextDocument& document);

}  // namespace shell::ui
