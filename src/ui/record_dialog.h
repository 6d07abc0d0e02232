#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "sequence/fasta_reader.h"

class QListWidget;

namespace tessarin {

// "Choose Record": the records of a multi-record FASTA file, one line each with its ID and length
// (`Records_Lst`), the first selected; OK or a double click picks one.
class RecordDialog : public QDialog {
    Q_OBJECT

  public:
    RecordDialog(const std::string& file_name, const std::vector<FastaRecord>& records, QWidget* parent = nullptr);

    // The picked record's number, counted from 1.
    int ChosenNumber() const;

  private:
    QListWidget* list_;
};

// For a file read as FASTA that holds several records: asks which one and answers its ID; an empty
// choice (the file's one sequence) for any other file; nothing when the user cancels. A file that
// cannot be read is named in a message box and ends the command (nothing).
std::optional<std::string> AskRecord(QWidget* parent, const std::filesystem::path& file, bool force_fasta);

}  // namespace tessarin
