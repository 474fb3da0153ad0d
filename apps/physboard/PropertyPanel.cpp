#include "PropertyPanel.h"
#include "Annotations.h"
#include "Page.h"
#include "Strings.h"
#include <svgpropitem.h>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QVBoxLayout>
#include <cmath>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

constexpr double kOpenRange = 1e9;

QString text(const QJsonValue &v)
{
    if (v.isDouble())
        return QString::number(v.toDouble());
    if (v.isBool())
        return v.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    return v.toString();
}

// Bounds of a number input; a missing or reversed pair leaves the input open.
void bounds(const QJsonObject &item, double *lo, double *hi)
{
    bool okLo = false, okHi = false;
    const double a = item.value(QStringLiteral("min")).toString().toDouble(&okLo);
    const double b = item.value(QStringLiteral("max")).toString().toDouble(&okHi);
    *lo = okLo && std::isfinite(a) ? qBound(-kOpenRange, a, kOpenRange) : -kOpenRange;
    *hi = okHi && std::isfinite(b) ? qBound(-kOpenRange, b, kOpenRange) : kOpenRange;
    if (*lo > *hi) {
        *lo = -kOpenRange;
        *hi = kOpenRange;
    }
}

bool isIntType(const QString &t) { return t == QLatin1String("int") || t == QLatin1String("integer"); }
bool isFloatType(const QString &t)
{
    return t == QLatin1String("float") || t == QLatin1String("double") || t == QLatin1String("real");
}

} // namespace

ColorButton::ColorButton(QWidget *parent) : QToolButton(parent)
{
    setMinimumSize(48, 28);
    connect(this, &QToolButton::clicked, this, &ColorButton::pick);
}

void ColorButton::setColor(const QColor &c, bool notify)
{
    if (!c.isValid()) {
        // Nothing picked yet: the drawing keeps its own colours.
        m_color = QColor();
        setIcon(QIcon());
        setText(Strings::text(QStringLiteral("BOARD_COLOR_AS_DRAWN")));
        setToolButtonStyle(Qt::ToolButtonTextOnly);
        return;
    }
    m_color = c;
    QPixmap swatch(32, 16);
    swatch.fill(c);
    setIcon(QIcon(swatch));
    setIconSize(swatch.size());
    setText(c.name());
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    if (notify)
        emit colorPicked(c);
}

void ColorButton::pick()
{
    const QColor c = QColorDialog::getColor(m_color.isValid() ? m_color : QColor(Qt::black), this,
                                            Strings::text(QStringLiteral("BOARD_PICK_COLOR")));
    if (c.isValid() && c != m_color)
        setColor(c, true);
}

PropertyPanel::PropertyPanel(QWidget *parent) : QWidget(parent)
{
    auto *v = new QVBoxLayout(this);
    m_title = new QLabel(this);
    m_title->setWordWrap(true);
    QFont f = m_title->font();
    f.setBold(true);
    m_title->setFont(f);
    v->addWidget(m_title);
    m_form = new QFormLayout;
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    v->addLayout(m_form);
    m_placeBox = new QGroupBox(this);
    m_placeForm = new QFormLayout(m_placeBox);
    const struct {
        double lo, hi, step;
        int decimals;
        const char *suffix;
    } kinds[PlaceCount] = {{0, 1600, 1, 1, ""}, {0, 1000, 1, 1, ""}, {-360, 360, 1, 1, " °"}, {10, 1000, 5, 0, " %"}};
    for (int i = 0; i < PlaceCount; ++i) {
        auto *s = new QDoubleSpinBox(m_placeBox);
        s->setRange(kinds[i].lo, kinds[i].hi);
        s->setSingleStep(kinds[i].step);
        s->setDecimals(kinds[i].decimals);
        s->setSuffix(QString::fromUtf8(kinds[i].suffix));
        s->setKeyboardTracking(false);
        s->setObjectName(QStringLiteral("placement%1").arg(i));
        s->installEventFilter(this);
        for (QWidget *child : s->findChildren<QWidget *>())
            child->installEventFilter(this);
        connect(s, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this, i](double value) {
            if (!m_showing)
                emit placementEdited(i, value);
        });
        m_place[i] = s;
        m_placeForm->addRow(new QLabel(m_placeBox), s);
    }
    v->addWidget(m_placeBox);
    v->addStretch(1);
    retranslate();
}

void PropertyPanel::retranslate()
{
    m_placeBox->setTitle(Strings::text(QStringLiteral("BOARD_PLACEMENT")));
    const char *const keys[PlaceCount] = {"BOARD_POSITION_X", "BOARD_POSITION_Y", "BOARD_ROTATION", "BOARD_SCALE"};
    for (int i = 0; i < PlaceCount; ++i)
        if (auto *l = qobject_cast<QLabel *>(m_placeForm->labelForField(m_place[i])))
            l->setText(Strings::text(QLatin1String(keys[i])));
    rebuild();
}

void PropertyPanel::refreshPlacement()
{
    m_placeBox->setVisible(m_obj);
    if (!m_obj)
        return;
    m_showing = true;
    m_place[PlaceX]->setValue(m_obj->pos().x());
    m_place[PlaceY]->setValue(m_obj->pos().y());
    m_place[PlaceRotation]->setValue(m_obj->rotation());
    m_place[PlaceScale]->setValue(m_obj->scale() * 100);
    m_showing = false;
}

void PropertyPanel::setObject(CWBPhysicalObject *obj)
{
    m_obj = obj;
    m_mark = nullptr;
    rebuild();
}

void PropertyPanel::setMark(Annotation *mark)
{
    m_obj = nullptr;
    m_mark = mark;
    rebuild();
}

void PropertyPanel::addMarkRows()
{
    auto *colour = new ColorButton(this);
    colour->setObjectName(QStringLiteral("markColor"));
    colour->setColor(m_mark->color(), false);
    connect(colour, &ColorButton::colorPicked, this, [this](const QColor &c) {
        if (!m_showing)
            emit markColorEdited(c);
    });
    auto *size = new QDoubleSpinBox(this);
    size->setObjectName(QStringLiteral("markSize"));
    size->setRange(Annotation::minSize(m_mark->kind()), Annotation::maxSize(m_mark->kind()));
    size->setDecimals(1);
    size->setSuffix(QStringLiteral(" px"));
    size->setKeyboardTracking(false);
    m_showing = true;
    size->setValue(m_mark->size());
    m_showing = false;
    connect(size, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double v) {
        if (!m_showing)
            emit markSizeEdited(v);
    });
    const bool text = m_mark->kind() == Annotation::Text;
    for (QWidget *w : {static_cast<QWidget *>(colour), static_cast<QWidget *>(size)}) {
        w->installEventFilter(this);
        for (QWidget *child : w->findChildren<QWidget *>())
            child->installEventFilter(this);
    }
    m_form->addRow(new QLabel(Strings::text(QStringLiteral("BOARD_MARK_COLOR")), this), colour);
    m_form->addRow(new QLabel(Strings::text(text ? QStringLiteral("BOARD_MARK_SIZE") : QStringLiteral("BOARD_MARK_WIDTH")), this), size);
    m_editors.insert(QStringLiteral("markColor"), colour);
    m_editors.insert(QStringLiteral("markSize"), size);
}

void PropertyPanel::setSelectionCount(int count)
{
    m_count = count;
    if (count > 1)
        m_title->setText(Strings::text(QStringLiteral("BOARD_MANY_SELECTED")).arg(count));
}

void PropertyPanel::addHostColors()
{
    // Every colour the host keeps for the apparatus (a wire's, a lamp's light) gets a
    // swatch, whether or not the apparatus's own settings name it.
    for (const CSVGPropItem *item : m_obj->content()->propItems()) {
        const int id = item->attributeId();
        if (item->dataType() != DATA_TYPE_COLOR || (id != CSVGBase::PROP_COLOR && id != CSVGBase::PROP_LAMP_COLOR))
            continue;
        QByteArray bytes;
        QColor c;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            m_obj->content()->GetAttribute(id, out);
        }
        QDataStream in(bytes);
        in >> c;
        auto *b = new ColorButton(this);
        b->setColor(c, false);
        b->setObjectName(hostColorId(id));
        connect(b, &ColorButton::colorPicked, this, [this, id](const QColor &picked) {
            if (!m_showing)
                emit hostColorEdited(id, picked);
        });
        auto *label = new QLabel(Strings::label(item->name()), this);
        label->setBuddy(b);
        m_form->addRow(label, b);
        m_editors.insert(hostColorId(id), b);
        m_labels.insert(hostColorId(id), label);
    }
}

bool PropertyPanel::wantsRefresh(const QString &id) const
{
    for (const QJsonValue &v : m_settings) {
        const QJsonObject o = v.toObject();
        if (o.value(QStringLiteral("id")).toString() == id)
            return o.value(QStringLiteral("refreshAfterSet")).toBool();
    }
    return false;
}

void PropertyPanel::rebuild()
{
    // The editor that asked for the rebuild may still be on the stack: delete later.
    while (m_form->rowCount() > 0) {
        const QFormLayout::TakeRowResult row = m_form->takeRow(0);
        for (QLayoutItem *li : {row.labelItem, row.fieldItem}) {
            if (!li)
                continue;
            if (QWidget *w = li->widget()) {
                disconnect(w, nullptr, this, nullptr);
                w->hide();
                w->deleteLater();
            }
            delete li;
        }
    }
    m_editors.clear();
    m_labels.clear();
    m_settings = QJsonArray();
    refreshPlacement();
    if (!m_obj && m_mark) {
        m_title->setText(BoardPage::nameOf(m_mark));
        addMarkRows();
        return;
    }
    if (!m_obj || !m_obj->content()) {
        m_title->setText(m_count > 1 ? Strings::text(QStringLiteral("BOARD_MANY_SELECTED")).arg(m_count)
                                     : Strings::text(QStringLiteral("BOARD_NO_SELECTION")));
        return;
    }
    m_title->setText(Strings::typeName(m_obj->typeId()));
    m_obj->content()->GetSettingArray(m_settings);
    for (const QJsonValue &v : m_settings) {
        const QJsonObject item = v.toObject();
        const QString id = item.value(QStringLiteral("id")).toString();
        if (id.isEmpty() || m_editors.contains(id))
            continue;
        QWidget *w = makeEditor(item);
        if (!w)
            continue;
        w->setObjectName(id);
        w->installEventFilter(this);
        for (QWidget *child : w->findChildren<QWidget *>())
            child->installEventFilter(this);
        auto *label = new QLabel(Strings::label(item.value(QStringLiteral("label")).toString()), this);
        label->setBuddy(w);
        m_form->addRow(label, w);
        m_editors.insert(id, w);
        m_labels.insert(id, label);
    }
    addHostColors();
    if (m_editors.isEmpty()) {
        auto *none = new QLabel(Strings::text(QStringLiteral("BOARD_NO_PROPERTIES")), this);
        none->setWordWrap(true);
        m_form->addRow(none);
    }
}

QWidget *PropertyPanel::makeEditor(const QJsonObject &item)
{
    const QString id = item.value(QStringLiteral("id")).toString();
    const QString type = item.value(QStringLiteral("type")).toString();
    const QJsonValue value = item.value(QStringLiteral("value"));
    if (type == QLatin1String("input")) {
        const QString valueType = item.value(QStringLiteral("valueType")).toString();
        const QString unit = Strings::label(item.value(QStringLiteral("unit")).toString());
        double lo = 0, hi = 0;
        bounds(item, &lo, &hi);
        if (isIntType(valueType)) {
            auto *s = new QSpinBox(this);
            s->setRange(int(std::ceil(qMax(lo, double(INT_MIN)))), int(std::floor(qMin(hi, double(INT_MAX)))));
            s->setKeyboardTracking(false);
            if (!unit.isEmpty())
                s->setSuffix(QLatin1Char(' ') + unit);
            s->setValue(int(std::trunc(text(value).toDouble())));
            connect(s, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, id](int v) {
                if (!m_showing)
                    emit edited(id, QString::number(v));
            });
            return s;
        }
        if (isFloatType(valueType)) {
            auto *s = new QDoubleSpinBox(this);
            s->setDecimals(2);
            s->setRange(lo, hi);
            s->setKeyboardTracking(false);
            if (!unit.isEmpty())
                s->setSuffix(QLatin1Char(' ') + unit);
            s->setValue(text(value).toDouble());
            connect(s, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this, id](double v) {
                if (!m_showing)
                    emit edited(id, QString::number(v));
            });
            return s;
        }
        auto *e = new QLineEdit(text(value), this);
        connect(e, &QLineEdit::editingFinished, this, [this, id, e]() {
            if (!m_showing && e->isModified()) {
                e->setModified(false);
                emit edited(id, e->text());
            }
        });
        return e;
    }
    if (type == QLatin1String("combobox")) {
        auto *c = new QComboBox(this);
        const QJsonArray values = item.value(QStringLiteral("values")).toArray();
        const QJsonArray options = item.value(QStringLiteral("options")).toArray();
        const int n = qMax(values.size(), options.size());
        for (int i = 0; i < n; ++i) {
            const QString shown = i < options.size() ? options[i].toString() : values[i].toString();
            c->addItem(Strings::label(shown), i < values.size() ? values[i].toString() : QString());
        }
        c->setCurrentIndex(value.toInt(-1));
        connect(c, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, id, c](int i) {
            if (m_showing || i < 0)
                return;
            // Options with value texts are told apart by text, the others by index.
            const QString v = c->itemData(i).toString();
            emit edited(id, v.isEmpty() ? QString::number(i) : v);
        });
        return c;
    }
    if (type == QLatin1String("colorpicker")) {
        auto *b = new ColorButton(this);
        b->setColor(QColor(value.toString()), false);
        connect(b, &ColorButton::colorPicked, this, [this, id](const QColor &c) {
            if (!m_showing)
                emit edited(id, c.name());
        });
        return b;
    }
    if (type == QLatin1String("switch")) {
        auto *s = new QCheckBox(this);
        s->setChecked(value.isBool() ? value.toBool() : text(value) == QLatin1String("true"));
        connect(s, &QCheckBox::toggled, this, [this, id](bool on) {
            if (!m_showing)
                emit edited(id, on ? QStringLiteral("true") : QStringLiteral("false"));
        });
        return s;
    }
    return nullptr;
}

void PropertyPanel::showValue(const QString &id, const QJsonValue &value)
{
    QWidget *w = m_editors.value(id);
    if (!w)
        return;
    m_showing = true;
    const QString t = text(value);
    if (auto *s = qobject_cast<QSpinBox *>(w))
        s->setValue(int(std::trunc(t.toDouble())));
    else if (auto *d = qobject_cast<QDoubleSpinBox *>(w))
        d->setValue(t.toDouble());
    else if (auto *e = qobject_cast<QLineEdit *>(w))
        e->setText(t);
    else if (auto *c = qobject_cast<QComboBox *>(w)) {
        const int byText = t.isEmpty() ? -1 : c->findData(t);
        c->setCurrentIndex(value.isDouble() || byText < 0 ? t.toInt() : byText);
    } else if (auto *b = qobject_cast<ColorButton *>(w))
        b->setColor(QColor(t), false);
    else if (auto *x = qobject_cast<QCheckBox *>(w))
        x->setChecked(value.isBool() ? value.toBool() : t == QLatin1String("true"));
    m_showing = false;
}

void PropertyPanel::refreshValues()
{
    if (!m_obj || !m_obj->content()) {
        if (!m_editors.isEmpty())
            rebuild();
        return;
    }
    QJsonArray now;
    m_obj->content()->GetSettingArray(now);
    auto ids = [](const QJsonArray &a) {
        QStringList out;
        for (const QJsonValue &v : a)
            out << v.toObject().value(QStringLiteral("id")).toString() + v.toObject().value(QStringLiteral("type")).toString();
        return out;
    };
    if (ids(now) != ids(m_settings)) {
        rebuild();
        return;
    }
    m_settings = now;
    refreshPlacement();
    for (const QJsonValue &v : now) {
        const QJsonObject o = v.toObject();
        showValue(o.value(QStringLiteral("id")).toString(), o.value(QStringLiteral("value")));
    }
}

void PropertyPanel::commitEditing()
{
    // Whatever field holds typed text not yet taken: only one can, the one being typed in.
    for (auto it = m_editors.cbegin(); it != m_editors.cend(); ++it) {
        if (auto *e = qobject_cast<QLineEdit *>(it.value())) {
            if (e->isModified()) {
                e->setModified(false);
                emit edited(it.key(), e->text());
            }
        } else if (auto *s = qobject_cast<QAbstractSpinBox *>(it.value())) {
            s->interpretText(); // a changed value is emitted as an edit
        }
    }
    for (QDoubleSpinBox *s : m_place)
        s->interpretText();
}

bool PropertyPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        auto *k = static_cast<QKeyEvent *>(event);
        // Left unaccepted, the key goes on to the window's Undo and Redo.
        if (k->matches(QKeySequence::Undo) || k->matches(QKeySequence::Redo))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PropertyPanel::applyMessage(const QByteArray &json)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    const QString notice = root.value(QStringLiteral("notice")).toString();
    if (!notice.isEmpty())
        emit this->notice(Strings::text(notice).arg(CSVGBase::maxTextLength()));
    for (const QJsonValue &v : root.value(QStringLiteral("settings")).toArray()) {
        const QJsonObject o = v.toObject();
        showValue(o.value(QStringLiteral("id")).toString(), o.value(QStringLiteral("value")));
    }
}
