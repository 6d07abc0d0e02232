#include "ui/record_dialog.h"

#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QVBoxLayout>

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_reading.h"
#include "ui/form_buttons.h"
#include "ui/qt_text.h"

namespace tessarin {

RecordDialog::RecordDialog(const std::string& file_name, const std::vector<FastaRecord>& records, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)) {
    setWindowTitle("Choose Record");
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(FromDisplayText(file_name + " holds several records; analyse which?"), this);
    label->setObjectName("Records_Lbl");
    layout->addWidget(label);
    list_->setObjectName("Records_Lst");
    for (const FastaRecord& record : records) {
        list_->addItem(FromDisplayText(record.id + "  (" + std::to_string(record.sequence.size()) + " letters)"));
    }
    list_->setCurrentRow(0);
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    layout->addWidget(list_);
    layout->addLayout(OkCancelButtons(*this, [this] { accept(); }));
}

int RecordDialog::ChosenNumber() const {
    return list_->currentRow() + 1;
}

std::optional<std::string> AskRecord(QWidget* parent, const std::filesystem::path& file, bool force_fasta) {
    SequenceReading reading;
    reading.fasta = force_fasta;
    if (!ReadsAsFasta(file, reading)) return std::string();
    std::vector<FastaRecord> records;
    try {
        records = ReadFastaRecords(file);
    } catch (const SequenceFileError& error) {
        QMessageBox::information(parent, kMessageTitle, FromDisplayText(error.what()));
        return std::nullopt;
    }
    if (records.size() < 2) return std::string();
    RecordDialog dialog(file.filename().string(), records, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return records[static_cast<std::size_t>(dialog.ChosenNumber() - 1)].id;
}

}  // namespace tessarin
