/// Pours rich text into a document of the toolkit.
#pragma once

#include "shell/help/rich_text.h"

class QTextDocument;

namespace shell::ui {

/// Replaces all that `document` holds by `text`.
/// Units   `pixelsPerTwip`: how long a twip is where the document is shown
void PourRichText(const help::RichText& text, double pixelsPerTwip, QTextDocument& document);

}  // namespace shell::ui
