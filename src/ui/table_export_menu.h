#pragma once

#include <QString>
#include <QTemporaryFile>
#include <memory>

namespace tessarin {

class TextForm;

// A fresh, empty file for the table of one run (nullptr when none can be made); it is removed
// when the last owner lets go of it.
std::shared_ptr<QTemporaryFile> NewTableFile();

// The visible text window that shows the file at `path` (a report just written), or nullptr.
TextForm* WindowShowingFile(const QString& path);

// Adds "Save &Table As..." to the File menu of a report's window: the report's figures as the
// tab-separated table in `table`, copied under a name the user chooses (proposed: the log's name
// with ".tsv"). The window keeps the file until it closes.
void OfferTableExport(TextForm& report, std::shared_ptr<QTemporaryFile> table);

}  // namespace tessarin
