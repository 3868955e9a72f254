// The manual in the window: the pages for users that lie in the folder of documents, cut into their
// sections, as a box to read in.
#pragma once

#include <QString>
#include <QWidget>
#include <string_view>
#include <vector>

namespace vistaplot {

struct ManualSection {
  QString page;   ///< the file that it stands in, "indicators.md"
  QString title;  ///< its heading, as plain text
  QString text;   ///< Markdown, with the heading and all that stands below it
  bool opens_page = false;
};

/// All sections in reading order: what a heading of the first or second order begins. Pictures are
/// left out; a section of one page has no heading that a section of another one has.
std::vector<ManualSection> ManualSections();

/// Shows the manual over `owner` until the user closes it, opened at the section of that heading,
/// or at its beginning when there is none.
void ShowManual(QWidget* owner, std::string_view heading);

}  // namespace vistaplot
