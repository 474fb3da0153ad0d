#include "Toolbox.h"
#include "BoardView.h"
#include "Page.h"
#include "Strings.h"
#include <QListWidget>
#include <QMimeData>
#include <QPainter>
#include <PhysicalPlugin.h>
#include <svgbase.h>

namespace {

constexpr int kTypeRole = Qt::UserRole + 1;

const char *const kGroupKeys[Toolbox::GroupCount] = {"BOARD_GROUP_MECHANICS", "BOARD_GROUP_ELECTRICITY",
                                                    "BOARD_GROUP_OPTICS", "BOARD_GROUP_CIRCUIT"};

// A list whose entries can be dragged onto the page.
class ToolList : public QListWidget
{
public:
    explicit ToolList(QWidget *parent) : QListWidget(parent)
    {
        setViewMode(QListView::ListMode);
        setIconSize(QSize(40, 40));
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
        setSpacing(2);
    }

protected:
    QMimeData *mimeData(const QList<QListWidgetItem *> items) const override
    {
        auto *m = new QMimeData;
        if (!items.isEmpty())
            m->setData(QLatin1String(BoardView::kTypeMime), QByteArray::number(items.first()->data(kTypeRole).toInt()));
        return m;
    }
    QStringList mimeTypes() const override { return {QLatin1String(BoardView::kTypeMime)}; }
};

} // namespace

Toolbox::Toolbox(QWidget *parent) : QToolBox(parent)
{
    for (int g = 0; g < GroupCount; ++g) {
        m_lists[g] = new ToolList(this);
        m_lists[g]->setObjectName(QLatin1String(kGroupKeys[g]));
        addItem(m_lists[g], QString());
        connect(m_lists[g], &QListWidget::itemClicked, this,
                [this](QListWidgetItem *item) { emit placeRequested(item->data(kTypeRole).toInt()); });
    }
    int n = 0;
    const PhysicalTypeInfo *t = PhysicalPlugin::typeTable(&n);
    for (int i = 0; i < n; ++i) {
        auto *item = new QListWidgetItem(iconFor(t[i].type), QString());
        item->setData(kTypeRole, t[i].type);
        m_lists[groupOf(t[i].type)]->addItem(item);
    }
    retranslate();
}

Toolbox::Group Toolbox::groupOf(int typeId)
{
    // The lens symbols sit among the optics ids but draw circuit-diagram symbols.
    if (typeId == 602 || typeId == 605 || typeId >= 700)
        return CircuitSymbols;
    if (typeId >= 600)
        return Optics;
    if (typeId >= 400)
        return Electricity;
    return Mechanics;
}

QIcon Toolbox::iconFor(int typeId, int side)
{
    QPixmap pm(side, side);
    pm.fill(Qt::transparent);
    CWBPhysicalObject *obj = BoardPage::create(typeId, true);
    if (!obj)
        return QIcon(pm);
    const QSizeF s = obj->itemSize();
    if (s.width() > 0 && s.height() > 0) {
        const double k = (side - 2) / qMax(s.width(), s.height());
        const QSizeF drawn = s * k;
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        obj->content()->document()->render(
            &p, QRectF(QPointF((side - drawn.width()) / 2, (side - drawn.height()) / 2), drawn), false);
    }
    obj->Release();
    return QIcon(pm);
}

void Toolbox::retranslate()
{
    for (int g = 0; g < GroupCount; ++g) {
        setItemText(g, Strings::text(QLatin1String(kGroupKeys[g])));
        int n = 0;
        const PhysicalTypeInfo *t = PhysicalPlugin::typeTable(&n);
        for (int r = 0; r < m_lists[g]->count(); ++r) {
            QListWidgetItem *item = m_lists[g]->item(r);
            const int type = item->data(kTypeRole).toInt();
            const char *fallback = nullptr;
            for (int i = 0; i < n; ++i)
                if (t[i].type == type)
                    fallback = t[i].name;
            item->setText(Strings::typeName(type, fallback));
            item->setToolTip(QStringLiteral("%1 (%2)").arg(item->text()).arg(type));
        }
    }
}

QListWidget *Toolbox::listOf(int typeId) const { return rowOf(typeId) >= 0 ? m_lists[groupOf(typeId)] : nullptr; }

int Toolbox::rowOf(int typeId) const
{
    QListWidget *l = m_lists[groupOf(typeId)];
    for (int r = 0; r < l->count(); ++r)
        if (l->item(r)->data(kTypeRole).toInt() == typeId)
            return r;
    return -1;
}
