#include "views/dialogs/WirelessDialog.h"

#include "app/LanguageManager.h"
#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tessary {

namespace {

constexpr int idRole = Qt::UserRole;

QString stateText(const WirelessViewModel::Phone& phone) {
    switch (phone.step) {
    case WirelessViewModel::Step::working:
        return phone.device.isPairing ? WirelessDialog::tr("Pairing…")
                                      : WirelessDialog::tr("Connecting…");
    case WirelessViewModel::Step::done:
        return phone.device.isPairing ? WirelessDialog::tr("Paired")
                                      : WirelessDialog::tr("Connected");
    case WirelessViewModel::Step::failed:
        return phone.failure ? errorText(*phone.failure).text() : QString();
    case WirelessViewModel::Step::none:
        break;
    }
    return phone.device.isPairing ? WirelessDialog::tr("Waiting to be paired")
                                  : WirelessDialog::tr("Ready to connect");
}

/// The six digits, however they are grouped; no value for anything else.
std::optional<QString> pairingCode(const QString& text) {
    static const QRegularExpression blanks(QStringLiteral("\\s"));
    static const QRegularExpression digits(QStringLiteral("^\\d{6}$"));
    const QString code = QString(text).remove(blanks);
    return digits.match(code).hasMatch() ? std::optional(code) : std::nullopt;
}

} // namespace

WirelessDialog::WirelessDialog(std::shared_ptr<ServiceNetwork> network, ADBWays& ways,
                               QWidget* parent)
    : QDialog(parent),
      phones_(std::move(network), ways),
      list_(new QListWidget),
      note_(new QLabel),
      busy_(new QProgressBar),
      connect_(new QPushButton) {
    setObjectName(QStringLiteral("wirelessDialog"));
    resize(500, 380);
    list_->setObjectName(QStringLiteral("wirelessList"));
    list_->setIconSize({32, 32});
    list_->setSpacing(3);
    list_->setWordWrap(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect_->setObjectName(QStringLiteral("wirelessConnect"));
    note_->setObjectName(QStringLiteral("wirelessNote"));
    auto* intro = new QLabel;
    intro->setWordWrap(true);
    note_->setWordWrap(true);
    note_->setForegroundRole(QPalette::PlaceholderText);
    makeBusy(*busy_);
    auto* again = new QPushButton;
    again->setAutoDefault(false);
    connect_->setDefault(true);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(again, QDialogButtonBox::ResetRole);
    buttons->addButton(connect_, QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 18, 18, 14);
    column->setSpacing(10);
    column->addWidget(intro);
    column->addWidget(list_, 1);
    column->addWidget(busy_);
    column->addWidget(note_);
    column->addWidget(buttons);

    connect(&phones_, &WirelessViewModel::changed, this, &WirelessDialog::showPhones);
    connect(list_, &QListWidget::currentRowChanged, this, &WirelessDialog::showButtons);
    connect(list_, &QListWidget::itemActivated, this, &WirelessDialog::connectOrPair);
    connect(connect_, &QPushButton::clicked, this, &WirelessDialog::connectOrPair);
    connect(again, &QPushButton::clicked, this, [this] {
        phones_.stop();
        phones_.start();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    keepTranslated(this, [this, intro, again, close] {
        setWindowTitle(tr("Wireless Devices"));
        intro->setText(tr("Phones on this network on which wireless debugging is switched on."));
        list_->setAccessibleName(tr("Wireless Devices"));
        busy_->setAccessibleName(tr("Looking for phones…"));
        again->setText(tr("Search Again"));
        close->setText(tr("Close"));
        showPhones();
    });
}

WirelessDialog::~WirelessDialog() {
    phones_.disconnect(this);
}

void WirelessDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        phones_.start();
}

void WirelessDialog::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous())
        phones_.stop();
}

/// Rows that stay keep their place and the choice, so that nothing moves below the hand.
void WirelessDialog::showPhones() {
    const auto& phones = phones_.phones();
    const WirelessViewModel::Phone* kept = chosen();
    const QString keptId = kept ? kept->device.id : QString();
    while (list_->count() > static_cast<int>(phones.size()))
        delete list_->takeItem(list_->count() - 1);
    while (list_->count() < static_cast<int>(phones.size()))
        list_->addItem(new QListWidgetItem(icon("phonePicture"), QString()));
    for (int row = 0; row < list_->count(); ++row) {
        const auto& phone = phones[static_cast<std::size_t>(row)];
        QListWidgetItem* item = list_->item(row);
        item->setData(idRole, phone.device.id);
        item->setText(printable(phone.device.name) + QLatin1Char('\n') + stateText(phone));
        if (phone.device.id == keptId)
            list_->setCurrentRow(row);
    }
    const bool isUnavailable = phones_.state() == WirelessViewModel::State::unavailable;
    busy_->setVisible(!isUnavailable && phones.empty());
    note_->setText(isUnavailable ? tr("This computer cannot look for phones on the network: the "
                                      "service for it (avahi-daemon) does not run.")
                   : phones.empty()
                       ? tr("On the phone, switch on wireless debugging in the developer options. "
                            "It must be on the same network as this computer.")
                       : tr("A phone that waits to be paired shows a code of six digits."));
    showButtons();
}

void WirelessDialog::showButtons() {
    const WirelessViewModel::Phone* phone = chosen();
    connect_->setText(phone && phone->device.isPairing ? tr("Pair…") : tr("Connect"));
    connect_->setEnabled(phone && !phones_.isWorking() &&
                         phone->step != WirelessViewModel::Step::done);
}

const WirelessViewModel::Phone* WirelessDialog::chosen() const {
    const QListWidgetItem* item = list_->currentItem();
    return item ? phones_.phone(item->data(idRole).toString()) : nullptr;
}

void WirelessDialog::connectOrPair() {
    const WirelessViewModel::Phone* phone = chosen();
    if (!phone || !connect_->isEnabled())
        return;
    const QString id = phone->device.id;
    if (!phone->device.isPairing) {
        phones_.connectTo(id);
        return;
    }
    auto* question = new QInputDialog(this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowTitle(tr("Pair…"));
    question->setLabelText(tr("The six digits that the phone shows:"));
    question->setOkButtonText(tr("Pair"));
    question->setCancelButtonText(tr("Cancel"));
    QPushButton* pair = question->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    pair->setEnabled(false);
    connect(question, &QInputDialog::textValueChanged, pair,
            [pair](const QString& text) { pair->setEnabled(pairingCode(text).has_value()); });
    connect(question, &QInputDialog::textValueSelected, this, [this, id](const QString& text) {
        if (const auto code = pairingCode(text))
            phones_.pair(id, *code);
    });
    question->open();
}

} // namespace tessary
