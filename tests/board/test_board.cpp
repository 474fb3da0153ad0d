// The board through its real window: toolbox, handles, panel, undo, files, exports
// and languages, driven by mouse and keyboard events under the offscreen platform.
#include "BoardView.h"
#include "BoardWindow.h"
#include "Commands.h"
#include "Page.h"
#include "PropertyPanel.h"
#include "Recorder.h"
#include "Strings.h"
#include "Toolbox.h"
#include "../docdiff.h"
#include "input.h"
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressDialog>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

QUndoStack *stack() { return GetFramework()->undoStack(); }

QString docOf(CWBPhysicalObject *o) { return QString::fromUtf8(o->content()->document()->toSvg()); }

// Documents equal up to rounding of their numbers.
bool sameDocument(const QString &a, const QString &b, double tol = 1e-6)
{
    return compareDocuments(a, b, tol).kind == DocDiff::Same;
}

QString settingValue(CWBPhysicalObject *o, const QString &id)
{
    QJsonArray a;
    o->content()->GetSettingArray(a);
    for (const QJsonValue &v : a)
        if (v.toObject().value(QStringLiteral("id")).toString() == id) {
            const QJsonValue x = v.toObject().value(QStringLiteral("value"));
            return x.isDouble() ? QString::number(x.toDouble()) : x.toString();
        }
    return QString();
}


// Every string-resource key in a byte array written by QDataStream (combo data).
QStringList keysInStream(const QByteArray &b)
{
    QStringList out;
    for (int i = 0; i + 4 <= b.size(); ++i) {
        const quint32 len = quint32(uchar(b[i])) << 24 | quint32(uchar(b[i + 1])) << 16 | quint32(uchar(b[i + 2])) << 8 |
                            uchar(b[i + 3]);
        if (len < 8 || len % 2 || len > 400 || i + 4 + int(len) > b.size())
            continue;
        QString s;
        for (quint32 k = 0; k < len; k += 2)
            s += QChar(ushort(uchar(b[i + 4 + k]) << 8 | uchar(b[i + 5 + k])));
        if (s.startsWith(QLatin1String("IDS_")))
            out << s;
    }
    return out;
}

// An apparatus that offers every kind of panel item, one of which asks for a rebuild.
class PanelProbe : public CSVGBase
{
public:
    explicit PanelProbe(CSVGObj *owner) : CSVGBase(owner) {}
    int count = 4, grade = 0;
    double reading = 0.25;
    QString label = QStringLiteral("R1");
    bool closed = false;
    QString colour = QStringLiteral("#112233");

    void GetSettingArray(QJsonArray &a) override
    {
        a.append(m_pOwner->GetSettingJsonInput("idCount", "IDS_PHYSICSOBJ_HEIGHT", QString::number(count), "int", "2", "9", "cm"));
        QJsonObject g = m_pOwner->GetSettingJsonComboBox("idMeterGrade", "IDS_PHYSICAL_METER_GRADE", grade, {},
                                                         {"IDS_PHYSICAL_CURRENT_METER_GRADE1", "IDS_PHYSICAL_CURRENT_METER_GRADE2"});
        g.insert(QStringLiteral("refreshAfterSet"), true);
        a.append(g);
        a.append(m_pOwner->GetSettingJsonInput("idMeterValue", "IDS_PHYSICAL_METER_VALUE", QString::number(reading, 'f', 2),
                                               "float", "0", grade ? "3" : "0.6", ""));
        a.append(m_pOwner->GetSettingJsonInput("idTextContent", "IDS_PHYSICSOBJ_TEXT_CONTENT", label, "text", "", "", ""));
        a.append(m_pOwner->GetSettingJsonSwitch("idSwitchIsConnected", "IDS_PHYSICSOBJ_SWITCHONOFF", closed));
        a.append(m_pOwner->GetSettingJsonColorPicker("idColor", "IDS_SVG_PHYSICAL_COLOR", colour));
        if (grade == 1)
            a.append(m_pOwner->GetSettingJsonSwitch("idBellIsRinging", "IDS_PHYSICSOBJ_BELLRING", false));
    }
    bool SetSettingArray(QMap<QString, QString> &v, bool, bool) override
    {
        if (v.contains("idCount")) count = v["idCount"].toInt();
        if (v.contains("idMeterGrade")) grade = v["idMeterGrade"].toInt();
        if (v.contains("idMeterValue")) reading = v["idMeterValue"].toDouble();
        if (v.contains("idTextContent")) label = v["idTextContent"];
        if (v.contains("idSwitchIsConnected")) closed = v["idSwitchIsConnected"] == "true";
        if (v.contains("idColor")) colour = v["idColor"];
        return true;
    }
    bool save(QDataStream &out) override
    {
        out << count << grade << reading << label << closed << colour;
        return true;
    }
    bool load(QDataStream &in) override
    {
        in >> count >> grade >> reading >> label >> closed >> colour;
        return true;
    }
};

class ProbeObject : public CWBPhysicalObject
{
public:
    ProbeObject() : CWBPhysicalObject(0, false) { m_pContent = probe = new PanelProbe(this); }
    PanelProbe *probe;
};

// A page file of the board's format around any body.
// The bodies these tests write are laid out as pages of format 2 (apparatus only).
QByteArray pageBytes(const QByteArray &body, quint16 version = 2)
{
    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << BoardPage::kMagic << version << body << QCryptographicHash::hash(body, QCryptographicHash::Sha1);
    return file;
}

QByteArray oneObjectBody(qint32 type, const QByteArray &state)
{
    QByteArray body;
    QDataStream out(&body, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << quint32(1) << type << QPointF(10, 10) << 0.0 << 1.0 << 1.0 << state << QByteArray();
    return body;
}

} // namespace

class BoardTest : public QObject
{
    Q_OBJECT

private:
    BoardWindow *w = nullptr;
    QWidget *vp() const { return w->view()->viewport(); }
    QPointF centreOf(CWBPhysicalObject *o) const
    {
        return w->view()->mapFromScene(o->mapToScene(o->boundingRect().center()));
    }
    QPointF handleCentre(CWBPhysicalObject *o, int i) const { return w->view()->handleDrawnRect(o, i).center(); }

private slots:
    void initTestCase()
    {
        QDir().mkpath(QStringLiteral(ARTEFACT_DIR));
        keepSettingsIn(QStringLiteral(ARTEFACT_DIR "/settings"));
        Strings::setLanguage(Strings::English);
    }

    void init()
    {
        w = new BoardWindow;
        w->resize(1280, 800);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w));
    }

    void cleanup()
    {
        QCoreApplication::processEvents();
        w->grab().save(QStringLiteral(ARTEFACT_DIR "/%1.png").arg(QLatin1String(QTest::currentTestFunction())));
        delete w;
        w = nullptr;
        Strings::setLanguage(Strings::English);
    }

    void toolboxGroupsEveryApparatusWithItsIcon()
    {
        QCOMPARE(Toolbox::groupOf(102), Toolbox::Mechanics);
        QCOMPARE(Toolbox::groupOf(302), Toolbox::Mechanics);
        QCOMPARE(Toolbox::groupOf(407), Toolbox::Electricity);
        QCOMPARE(Toolbox::groupOf(501), Toolbox::Electricity);
        QCOMPARE(Toolbox::groupOf(600), Toolbox::Optics);
        QCOMPARE(Toolbox::groupOf(602), Toolbox::CircuitSymbols);
        QCOMPARE(Toolbox::groupOf(605), Toolbox::CircuitSymbols);
        QCOMPARE(Toolbox::groupOf(607), Toolbox::Optics);
        QCOMPARE(Toolbox::groupOf(714), Toolbox::CircuitSymbols);
        int n = 0;
        const PhysicalTypeInfo *t = physical_TypeTable(&n);
        QVERIFY(n >= 5);
        int listed = 0;
        for (int g = 0; g < Toolbox::GroupCount; ++g)
            listed += w->toolbox()->list(Toolbox::Group(g))->count();
        QCOMPARE(listed, n);
        for (int i = 0; i < n; ++i) {
            QListWidget *l = w->toolbox()->listOf(t[i].type);
            QVERIFY2(l, t[i].className);
            QCOMPARE(w->toolbox()->indexOf(l), int(Toolbox::groupOf(t[i].type)));
            const QImage icon = l->item(w->toolbox()->rowOf(t[i].type))->icon().pixmap(48).toImage();
            int inked = 0;
            for (int y = 0; y < icon.height(); ++y)
                for (int x = 0; x < icon.width(); ++x)
                    inked += qAlpha(icon.pixel(x, y)) > 0;
            QVERIFY2(inked > 20, t[i].className);
        }
    }

    void placingFromTheToolboxIsOneUndoStep()
    {
        QListWidget *l = w->toolbox()->listOf(109);
        w->toolbox()->setCurrentWidget(l);
        const QRect r = l->visualItemRect(l->item(w->toolbox()->rowOf(109)));
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, r.center());
        QCOMPARE(w->page()->objects().size(), 1);
        CWBPhysicalObject *ruler = w->page()->objects().first();
        QCOMPARE(ruler->typeId(), 109);
        QCOMPARE(w->view()->selected(), ruler);
        auto *len = qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")));
        QVERIFY(len);
        QCOMPARE(len->minimum(), 0);
        QCOMPARE(len->maximum(), 100);
        QVERIFY(qobject_cast<ColorButton *>(w->panel()->editor(QStringLiteral("idScaleColor"))));
        QCOMPARE(w->panel()->labelOf(QStringLiteral("idPosValue"))->text(), QStringLiteral("Length"));
        // It lands in view.
        QVERIFY(w->view()->viewport()->rect().contains(centreOf(ruler).toPoint()));

        stack()->undo();
        QVERIFY(w->page()->objects().isEmpty());
        QVERIFY(!w->view()->selected());
        QVERIFY(!w->panel()->editor(QStringLiteral("idPosValue")));
        stack()->redo();
        QCOMPARE(w->page()->objects(), QList<CWBPhysicalObject *>{ruler});
    }

    void droppingAToolboxEntryPlacesItThere()
    {
        QMimeData mime;
        mime.setData(QLatin1String(BoardView::kTypeMime), "202");
        const QPoint at(400, 300);
        QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(vp(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(vp(), &drop);
        QCOMPARE(w->page()->objects().size(), 1);
        CWBPhysicalObject *spring = w->page()->objects().first();
        QCOMPARE(spring->typeId(), 202);
        QVERIFY(QLineF(centreOf(spring), QPointF(at)).length() < 1);
        // Something the library does not make is refused quietly.
        mime.setData(QLatin1String(BoardView::kTypeMime), "150");
        QDropEvent bad(at, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(vp(), &bad);
        QCOMPARE(w->page()->objects().size(), 1);
    }

    void handleDragFollowsLiveAndIsOneStep()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 200));
        QSvgNode *h = ruler->content()->controlNodes().at(0);
        const QRectF start = h->rect();
        auto *len = qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")));
        const int lenBefore = len->value();
        const QString doc0 = docOf(ruler);
        const double width0 = ruler->itemSize().width();
        const int steps0 = stack()->count();

        const QPointF from = handleCentre(ruler, 0);
        press(vp(), from);
        for (int i = 1; i <= 10; ++i) {
            moveTo(vp(), from + QPointF(20 * i, 9 * i)); // the vertical part must not move it
            if (i == 5) {
                QVERIFY2(len->value() > lenBefore, "the panel follows the drag");
                QVERIFY(docOf(ruler) != doc0);
            }
        }
        release(vp(), from + QPointF(200, 90));
        QCOMPARE(stack()->count(), steps0 + 1);
        QCOMPARE(h->rect().y(), start.y());
        QVERIFY(std::fabs(h->rect().x() - (start.x() + 200)) < 1.0);
        QVERIFY(std::fabs(ruler->itemSize().width() - (width0 + 200)) < 1.0);
        QCOMPARE(len->value(), int((h->rect().x() - 50) * 100 / 750));
        const QString doc1 = docOf(ruler);

        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(sameDocument(docOf(ruler), doc0));
        QCOMPARE(len->value(), lenBefore);
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(sameDocument(docOf(ruler), doc1));

        // Turned a quarter and scaled by 1.5, a drag down the screen runs along the ruler.
        ruler->setRotation(90);
        ruler->setScale(1.5);
        const double xTurned = h->rect().x();
        drag(vp(), handleCentre(ruler, 0), handleCentre(ruler, 0) + QPointF(0, 60));
        QVERIFY(std::fabs(h->rect().x() - (xTurned + 40)) < 0.5);
        QCOMPARE(h->rect().y(), start.y());
        ruler->setRotation(0);
        ruler->setScale(1);

        // Far past the end: the handle stops at its bound.
        drag(vp(), handleCentre(ruler, 0), handleCentre(ruler, 0) + QPointF(3000, -400));
        QCOMPARE(h->rect().x(), 800.0);
        QCOMPARE(h->rect().y(), start.y());
        QCOMPARE(len->value(), 100);
    }

    void handlesTakeAPressAnywhereInTheirTouchArea()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 200));
        const double side = w->view()->minHitPixels();
        QVERIFY(side >= 8 / 25.4 * w->view()->logicalDpiX() - 1e-9);
        // Drawn small, touched big, at any item scale.
        for (double scale : {1.0, 0.3}) {
            ruler->setScale(scale);
            const QRectF drawn = w->view()->handleDrawnRect(ruler, 0);
            const QRectF hit = w->view()->handleHitRect(ruler, 0);
            QVERIFY(drawn.width() < side);
            QVERIFY(hit.width() >= side && hit.height() >= side);
        }
        ruler->setScale(1);
        // Zoomed, the touch area is 8 mm or the drawn handle, whichever is bigger.
        for (double zoom : {0.5, 3.0, 4.0}) {
            w->view()->setZoom(zoom);
            const double drawn = w->view()->handleDrawnRect(ruler, 0).width();
            QVERIFY(std::fabs(w->view()->handleHitRect(ruler, 0).width() - std::max(drawn, side)) < 1e-6);
        }
        w->view()->setZoom(1);
        QSvgNode *h = ruler->content()->controlNodes().at(0);
        const double x0 = h->rect().x();
        // Outside the drawn handle, inside 8 mm of it.
        const QPointF near = handleCentre(ruler, 0) - QPointF(side / 2 - 2, 0);
        QVERIFY(!w->view()->handleDrawnRect(ruler, 0).contains(near));
        drag(vp(), near, near + QPointF(-40, 0));
        QVERIFY(std::fabs(h->rect().x() - (x0 - 40)) < 1.0);
    }

    void arrowKeysNudgeTheHandleOrTheItem()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 200));
        QSvgNode *h = ruler->content()->controlNodes().at(0);
        const int steps0 = stack()->count();
        // A click on a handle picks it without moving anything.
        const QPointF c = handleCentre(ruler, 0);
        press(vp(), c);
        release(vp(), c);
        QCOMPARE(w->view()->selectedHandle(), 0);
        QCOMPARE(stack()->count(), steps0);
        const double x0 = h->rect().x(), y0 = h->rect().y();
        QTest::keyClick(vp(), Qt::Key_Right);
        QCOMPARE(h->rect().x(), x0 + 1);
        QTest::keyClick(vp(), Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(h->rect().x(), x0 + 11);
        QTest::keyClick(vp(), Qt::Key_Up, Qt::ShiftModifier); // locked axis: no step either
        QCOMPARE(h->rect().y(), y0);
        QCOMPARE(stack()->count(), steps0 + 2);
        QVERIFY(!stack()->canRedo());
        // Turned a quarter, "down" on screen runs along the ruler.
        ruler->setRotation(-90);
        QTest::keyClick(vp(), Qt::Key_Up);
        QCOMPARE(h->rect().x(), x0 + 12);
        ruler->setRotation(0);

        QTest::keyClick(vp(), Qt::Key_Escape);
        QCOMPARE(w->view()->selectedHandle(), -1);
        const QPointF p0 = ruler->pos();
        QTest::keyClick(vp(), Qt::Key_Down);
        QCOMPARE(ruler->pos(), p0 + QPointF(0, 1));
        QTest::keyClick(vp(), Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(ruler->pos(), p0 + QPointF(-10, 1));
        stack()->undo();
        stack()->undo();
        QCOMPARE(ruler->pos(), p0);
    }

    void moveTurnAndScaleAreUndoable()
    {
        CWBPhysicalObject *wedge = w->place(102, QPointF(350, 300));
        const ItemPlacement p0 = ItemPlacement::of(wedge);
        const int steps0 = stack()->count();

        drag(vp(), centreOf(wedge), centreOf(wedge) + QPointF(60, 40));
        QCOMPARE(wedge->pos(), p0.pos + QPointF(60, 40));

        const QPointF centreScene = wedge->mapToScene(wedge->boundingRect().center());
        const QPointF c = centreOf(wedge);
        const QPointF knob = w->view()->rotateKnob();
        const double r = std::hypot(knob.x() - c.x(), knob.y() - c.y());
        drag(vp(), knob, c + QPointF(r, 0)); // a quarter turn clockwise
        QVERIFY(std::fabs(wedge->rotation() - 90) < 1e-6);
        const QPointF centreAfter = wedge->mapToScene(wedge->boundingRect().center());
        QVERIFY(QLineF(centreScene, centreAfter).length() < 1e-6);

        const QPointF corner = w->view()->scaleKnob();
        const QPointF origin = w->view()->mapFromScene(wedge->pos());
        drag(vp(), corner, origin + (corner - origin) * 1.5);
        QVERIFY(std::fabs(wedge->scale() - 1.5) < 0.02);
        QCOMPARE(stack()->count(), steps0 + 3);

        // The panel shows where it stands, and takes typed values.
        QDoubleSpinBox *turn = w->panel()->placementEditor(PropertyPanel::PlaceRotation);
        QCOMPARE(w->panel()->findChild<QGroupBox *>()->findChildren<QLabel *>().size(), int(PropertyPanel::PlaceCount));
        QCOMPARE(turn->value(), 90.0);
        QCOMPARE(w->panel()->placementEditor(PropertyPanel::PlaceScale)->value(), std::round(wedge->scale() * 100));
        const QPointF centreBefore = wedge->mapToScene(wedge->boundingRect().center());
        turn->setValue(45);
        QCOMPARE(wedge->rotation(), 45.0);
        QVERIFY(QLineF(wedge->mapToScene(wedge->boundingRect().center()), centreBefore).length() < 1e-6);
        w->panel()->placementEditor(PropertyPanel::PlaceX)->setValue(12);
        QCOMPARE(wedge->pos().x(), 12.0);
        QCOMPARE(stack()->count(), steps0 + 5);
        stack()->undo();
        stack()->undo();

        const ItemPlacement done = ItemPlacement::of(wedge);
        for (int i = 0; i < 3; ++i)
            stack()->undo();
        QVERIFY(ItemPlacement::of(wedge) == p0);
        QCOMPARE(turn->value(), 0.0);
        for (int i = 0; i < 3; ++i)
            stack()->redo();
        QVERIFY(ItemPlacement::of(wedge) == done);
    }

    void panelEditsChangeTheDrawingAndUndo()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 150));
        const QString doc0 = docOf(ruler);
        auto *colour = qobject_cast<ColorButton *>(w->panel()->editor(QStringLiteral("idScaleColor")));
        colour->setColor(QColor(QStringLiteral("#ff0000")), true);
        QCOMPARE(settingValue(ruler, QStringLiteral("idScaleColor")), QStringLiteral("#ff0000"));
        QVERIFY(docOf(ruler).contains(QLatin1String("#ff0000"), Qt::CaseInsensitive));
        const QString doc1 = docOf(ruler);
        auto *len = qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")));
        len->setValue(100);
        QCOMPARE(settingValue(ruler, QStringLiteral("idPosValue")), QStringLiteral("100"));
        QCOMPARE(ruler->content()->controlNodes().at(0)->rect().x(), 800.0);
        len->setValue(250); // past its maximum: stays at 100
        QCOMPARE(len->value(), 100);

        stack()->undo();
        QVERIFY(sameDocument(docOf(ruler), doc1));
        QCOMPARE(len->value(), 14);
        stack()->undo();
        QVERIFY(sameDocument(docOf(ruler), doc0));
        QCOMPARE(colour->color(), QColor(QStringLiteral("#2b3990")));

        CWBPhysicalObject *spring = w->place(202, QPointF(600, 350));
        auto *hooks = qobject_cast<QComboBox *>(w->panel()->editor(QStringLiteral("idHookCount")));
        QVERIFY(hooks);
        QCOMPARE(hooks->currentIndex(), 1);
        const QString springDoc = docOf(spring);
        hooks->setCurrentIndex(0);
        QCOMPARE(settingValue(spring, QStringLiteral("idHookCount")), QStringLiteral("0"));
        QVERIFY(docOf(spring) != springDoc);
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(sameDocument(docOf(spring), springDoc));
        QCOMPARE(hooks->currentIndex(), 1);
    }

    // A range choice and a typed reading are steps like any other edit, and Ctrl+Z in a
    // field still being typed in first makes the typed value an edit, then undoes it.
    void everyPanelEditIsOneStepEvenWhileTyping()
    {
        CWBPhysicalObject *meter = w->place(403, QPointF(300, 250));
        const int placed = stack()->count();
        const QString atRest = docOf(meter);
        auto *range = qobject_cast<QComboBox *>(w->panel()->editor(QStringLiteral("idMeterGrade")));
        QVERIFY(range);
        range->setCurrentIndex(1);
        QCOMPARE(stack()->count(), placed + 1);
        qobject_cast<QDoubleSpinBox *>(w->panel()->editor(QStringLiteral("idMeterValue")))->setValue(1.5);
        QCOMPARE(stack()->count(), placed + 2);
        QCOMPARE(settingValue(meter, QStringLiteral("idMeterValue")), QStringLiteral("1.50"));
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(w->page()->objects(), QList<CWBPhysicalObject *>{meter}); // the meter is still there
        QCOMPARE(settingValue(meter, QStringLiteral("idMeterGrade")), QStringLiteral("0"));
        QCOMPARE(docOf(meter), atRest);

        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 500));
        const QString before = docOf(ruler);
        const int steps = stack()->count();
        auto *len = qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")));
        len->setFocus();
        len->selectAll();
        QTest::keyClicks(len, QStringLiteral("60")); // typed, no Enter yet
        QCOMPARE(docOf(ruler), before);
        QTest::keyClick(len, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(stack()->count(), steps + 1); // the typed value became a step
        QCOMPARE(stack()->index(), steps);     // and was undone
        QCOMPARE(docOf(ruler), before);
        QCOMPARE(len->value(), 14);
        QTest::keyClick(len, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(settingValue(ruler, QStringLiteral("idPosValue")), QStringLiteral("60"));
    }

    void panelOffersEveryKindOfItemAndRebuildsWhenAsked()
    {
        auto *probe = new ProbeObject;
        w->page()->insertObject(probe);
        w->view()->select(probe);
        PropertyPanel *p = w->panel();
        auto *count = qobject_cast<QSpinBox *>(p->editor(QStringLiteral("idCount")));
        QVERIFY(count);
        QCOMPARE(count->minimum(), 2);
        QCOMPARE(count->maximum(), 9);
        QVERIFY(count->suffix().contains(QLatin1String("cm")));
        count->setValue(50);
        QCOMPARE(probe->probe->count, 9);

        auto *reading = qobject_cast<QDoubleSpinBox *>(p->editor(QStringLiteral("idMeterValue")));
        QVERIFY(reading);
        QCOMPARE(reading->maximum(), 0.6);

        auto *text = qobject_cast<QLineEdit *>(p->editor(QStringLiteral("idTextContent")));
        QVERIFY(text);
        text->setFocus();
        text->selectAll();
        QTest::keyClicks(text, QStringLiteral("L2"));
        QTest::keyClick(text, Qt::Key_Return);
        QCOMPARE(probe->probe->label, QStringLiteral("L2"));

        auto *sw = qobject_cast<QCheckBox *>(p->editor(QStringLiteral("idSwitchIsConnected")));
        QVERIFY(sw);
        QCOMPARE(p->labelOf(QStringLiteral("idSwitchIsConnected"))->text(), QStringLiteral("Switch closed"));
        QTest::mouseClick(sw, Qt::LeftButton, {}, QPoint(6, sw->height() / 2));
        QVERIFY(probe->probe->closed);

        auto *grade = qobject_cast<QComboBox *>(p->editor(QStringLiteral("idMeterGrade")));
        QCOMPARE(grade->itemText(1), QStringLiteral("0 – 3 A"));
        QVERIFY(!p->editor(QStringLiteral("idBellIsRinging")));
        grade->setCurrentIndex(1);
        QCOMPARE(probe->probe->grade, 1);
        // "refreshAfterSet": rebuilt, with the new item and the new bound.
        QVERIFY(p->editor(QStringLiteral("idBellIsRinging")));
        QCOMPARE(qobject_cast<QDoubleSpinBox *>(p->editor(QStringLiteral("idMeterValue")))->maximum(), 3.0);

        // Edits the apparatus does not record are undone from its saved state.
        stack()->undo();
        QCOMPARE(probe->probe->grade, 0);
        QVERIFY(!p->editor(QStringLiteral("idBellIsRinging")));
        stack()->undo();
        QVERIFY(!probe->probe->closed);
        QVERIFY(!qobject_cast<QCheckBox *>(p->editor(QStringLiteral("idSwitchIsConnected")))->isChecked());
        stack()->undo();
        QCOMPARE(probe->probe->label, QStringLiteral("R1"));
        stack()->undo();
        QCOMPARE(probe->probe->count, 4);
        QCOMPARE(qobject_cast<QSpinBox *>(p->editor(QStringLiteral("idCount")))->value(), 4);
    }

    void rememberedStateComesBackAsOneStep()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 150));
        QVERIFY(w->captureSelected());
        const QString remembered = docOf(ruler);
        qobject_cast<ColorButton *>(w->panel()->editor(QStringLiteral("idScaleColor")))->setColor(Qt::green, true);
        qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")))->setValue(80);
        const QString changed = docOf(ruler);
        const int steps = stack()->count();
        QVERIFY(w->restoreSelected());
        // The same colour comes back; its text may be spelt in the other case.
        QVERIFY(sameDocument(docOf(ruler).toLower(), remembered.toLower()));
        QCOMPARE(qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")))->value(), 14);
        QCOMPARE(stack()->count(), steps + 1);
        stack()->undo();
        QVERIFY(sameDocument(docOf(ruler), changed));
        // Nothing remembered for another apparatus: nothing to return to.
        w->place(202, QPointF(500, 300));
        QVERIFY(!w->restoreSelected());
    }

    void aRecordingPlaysBackToTheSamePage()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 120));
        CWBPhysicalObject *spring = w->place(202, QPointF(300, 400));
        const QString rulerAtStart = docOf(ruler);
        w->startRecording();
        w->view()->select(ruler);
        qobject_cast<ColorButton *>(w->panel()->editor(QStringLiteral("idScaleColor")))->setColor(Qt::red, true);
        qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")))->setValue(40);
        drag(vp(), handleCentre(spring, 0), handleCentre(spring, 0) + QPointF(0, 60));
        qobject_cast<QComboBox *>(w->panel()->editor(QStringLiteral("idHookCount")))->setCurrentIndex(0);
        drag(vp(), centreOf(spring), centreOf(spring) + QPointF(120, -30));
        w->place(102, QPointF(650, 300));
        w->place(107, QPointF(650, 500));
        stack()->undo();
        QTest::keyClick(vp(), Qt::Key_Right, Qt::ShiftModifier);
        w->stopRecording();

        struct Seen {
            int type;
            ItemPlacement at;
            QString doc;
        };
        QVector<Seen> end;
        for (CWBPhysicalObject *o : w->page()->objects())
            end.append({o->typeId(), ItemPlacement::of(o), docOf(o)});
        int records = 0;
        for (const Recorder::Entry &e : w->recorder()->entries())
            records += e.kind == Recorder::Entry::Record;
        QVERIFY2(records >= 2, "property changes travel as the apparatus's own records");

        // Step by step from the recorded start.
        QVERIFY(w->playBack(60 * 60 * 1000));
        QVERIFY(w->recorder()->isPlaying());
        QCOMPARE(w->page()->objects().size(), 2);
        QVERIFY(sameDocument(docOf(w->page()->objects().first()), rulerAtStart));
        QVERIFY(!w->view()->isEnabled());
        while (w->recorder()->step()) {
        }
        QVERIFY(w->view()->isEnabled());
        const QList<CWBPhysicalObject *> after = w->page()->objects();
        QCOMPARE(after.size(), end.size());
        for (int i = 0; i < after.size(); ++i) {
            QCOMPARE(after[i]->typeId(), end[i].type);
            QVERIFY(ItemPlacement::of(after[i]) == end[i].at);
            QVERIFY2(sameDocument(docOf(after[i]), end[i].doc), qPrintable(QString::number(end[i].type)));
        }
        // And at once, again.
        QVERIFY(w->playBack(0));
        QCOMPARE(w->page()->objects().size(), end.size());
        QVERIFY(!w->recorder()->isPlaying());
    }

    // Undone, a deletion gives the apparatus back to the page for good: a later edit
    // that drops the redo step must not take it away again.
    void aDeletionUndoneStaysUndoneAfterANewEdit()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 200));
        w->view()->select(ruler);
        w->deleteSelected();
        QVERIFY(w->page()->objects().isEmpty());
        w->undo();
        QCOMPARE(w->page()->objects(), QList<CWBPhysicalObject *>{ruler});
        w->place(107, QPointF(500, 300));
        QCOMPARE(w->page()->objects().size(), 2);
        QVERIFY(w->page()->objects().contains(ruler));
        w->view()->select(ruler);
        w->applyEdit(QStringLiteral("idPosValue"), QStringLiteral("40"));
        QCOMPARE(stack()->count(), 3);
    }

    void saveAndReopenGivesThePageBack()
    {
        QTemporaryDir dir;
        CWBPhysicalObject *ruler = w->place(109, QPointF(250, 120));
        qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")))->setValue(60);
        CWBPhysicalObject *spring = w->place(202, QPointF(300, 400));
        drag(vp(), handleCentre(spring, 0), handleCentre(spring, 0) + QPointF(0, 50));
        CWBPhysicalObject *wedge = w->place(102, QPointF(600, 400));
        wedge->setRotation(30);
        wedge->setScale(1.25);
        w->place(107, QPointF(800, 250));
        w->place(501, QPointF(150, 400));
        // A meter on its large range, with a reading past the scale.
        CWBPhysicalObject *meter = w->place(404, QPointF(900, 450));
        w->applyEdit(QStringLiteral("idMeterGrade"), QStringLiteral("1"));
        w->applyEdit(QStringLiteral("idMeterValue"), QStringLiteral("20"));
        // And a recording, which belongs to the page.
        w->startRecording();
        w->view()->select(ruler);
        w->applyEdit(QStringLiteral("idScaleColor"), QStringLiteral("#00aa00"));
        w->stopRecording();
        QVERIFY(w->isModified());
        const QByteArray meterRecord = meter->content()->record();
        struct Seen {
            int type;
            ItemPlacement at;
            QString doc;
        };
        QVector<Seen> before;
        for (CWBPhysicalObject *o : w->page()->objects())
            before.append({o->typeId(), ItemPlacement::of(o), docOf(o)});

        const QString path = dir.filePath(QStringLiteral("lesson.phb"));
        QVERIFY(w->savePage(path));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("lesson.phb")});
        QVERIFY(stack()->isClean());
        w->newPage();
        QVERIFY(w->page()->objects().isEmpty());

        QVERIFY2(w->openPage(path), qPrintable(w->lastError()));
        const QList<CWBPhysicalObject *> after = w->page()->objects();
        QCOMPARE(after.size(), before.size());
        for (int i = 0; i < after.size(); ++i) {
            QCOMPARE(after[i]->typeId(), before[i].type);
            QVERIFY(ItemPlacement::of(after[i]) == before[i].at);
            QVERIFY2(sameDocument(docOf(after[i]), before[i].doc), qPrintable(QString::number(before[i].type)));
        }
        QCOMPARE(stack()->count(), 0);
        QCOMPARE(w->currentFile(), path);
        QVERIFY(!w->isModified());
        CWBPhysicalObject *meterBack = after[before.size() - 1];
        QCOMPARE(meterBack->typeId(), 404);
        QCOMPARE(settingValue(meterBack, QStringLiteral("idMeterGrade")), QStringLiteral("1"));
        QCOMPARE(meterBack->content()->record(), meterRecord);
        QVERIFY(w->recorder()->hasRecording());
        QVERIFY(w->playBack(0));
        QCOMPARE(settingValue(w->page()->objects().first(), QStringLiteral("idScaleColor")), QStringLiteral("#00aa00"));
        QVERIFY2(w->openPage(path), qPrintable(w->lastError()));
        const QList<CWBPhysicalObject *> reopened = w->page()->objects();
        // What was reopened edits like anything placed.
        w->view()->select(reopened[0]);
        qobject_cast<QSpinBox *>(w->panel()->editor(QStringLiteral("idPosValue")))->setValue(10);
        QCOMPARE(settingValue(reopened[0], QStringLiteral("idPosValue")), QStringLiteral("10"));
    }

    // Whatever the library makes: placed, every handle dragged by the mouse as one step
    // each, then through a page file. (Exact undo of each apparatus is tested below the board.)
    void everyApparatusDragsAndReopens_data()
    {
        QTest::addColumn<int>("type");
        int n = 0;
        const PhysicalTypeInfo *t = physical_TypeTable(&n);
        for (int i = 0; i < n; ++i)
            QTest::newRow(t[i].className) << t[i].type;
    }

    void everyApparatusDragsAndReopens()
    {
        QFETCH(int, type);
        CWBPhysicalObject *o = w->place(type, QPointF(400, 300));
        QVERIFY(o && o->content());
        const int steps0 = stack()->count();
        int moved = 0;
        for (int i = 0; i < o->content()->controlNodes().size(); ++i) {
            const QString before = docOf(o);
            const QPointF from = handleCentre(o, i);
            drag(vp(), from, from + QPointF(14, 11));
            moved += docOf(o) != before;
        }
        QCOMPARE(stack()->count(), steps0 + moved);
        const QString dragged = docOf(o);

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("one.phb"));
        QVERIFY(w->savePage(path));
        w->newPage();
        QVERIFY2(w->openPage(path), qPrintable(w->lastError()));
        QCOMPARE(w->page()->objects().size(), 1);
        QCOMPARE(docOf(w->page()->objects().first()), dragged);
    }

    void damagedPageFilesLeaveThePageAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("says");
        QByteArray good;
        {
            BoardPage page;
            CWBPhysicalObject *a = BoardPage::create(109);
            CWBPhysicalObject *b = BoardPage::create(202);
            page.insertObject(a);
            page.insertObject(b);
            good = BoardPage::serialize(page.objects());
        }
        QByteArray ruler, wedge;
        {
            CWBPhysicalObject *r = BoardPage::create(109);
            ruler = r->content()->record();
            r->Release();
            CWBPhysicalObject *t = BoardPage::create(102);
            wedge = t->content()->record();
            t->Release();
        }
        QTest::newRow("empty") << QByteArray() << "not a physics page";
        QTest::newRow("foreign") << QByteArray("\x89PNG\r\n\x1a\n0000000000000000", 24) << "not a physics page";
        QTest::newRow("header only") << good.left(6) << "damaged";
        QTest::newRow("cut in half") << good.left(good.size() / 2) << "damaged";
        QTest::newRow("last byte missing") << good.left(good.size() - 1) << "damaged";
        QByteArray flipped = good;
        flipped[good.size() / 2] = char(flipped[good.size() / 2] ^ 0x40);
        QTest::newRow("flipped byte") << flipped << "damaged";
        QTest::newRow("trailing bytes") << good + "xx" << "damaged";
        QTest::newRow("newer format") << pageBytes(oneObjectBody(109, ruler), BoardPage::kVersion + 1) << "newer";
        QTest::newRow("unknown apparatus") << pageBytes(oneObjectBody(150, ruler)) << "type 150";
        QTest::newRow("state of another apparatus") << pageBytes(oneObjectBody(109, wedge)) << "cannot be read";
        QTest::newRow("garbage state") << pageBytes(oneObjectBody(109, "garbage")) << "cannot be read";
        QByteArray huge;
        {
            QDataStream out(&huge, QIODevice::WriteOnly);
            out << quint32(0xFFFFFFF0);
        }
        QTest::newRow("absurd count") << pageBytes(huge) << "at most 5000";
    }

    void damagedPageFilesLeaveThePageAlone()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, says);
        QTemporaryDir dir;
        CWBPhysicalObject *stick = w->place(107, QPointF(300, 300));
        const QString good = dir.filePath(QStringLiteral("good.phb"));
        QVERIFY(w->savePage(good));
        w->place(202, QPointF(500, 300));
        const QList<CWBPhysicalObject *> objs = w->page()->objects();
        const QString stickDoc = docOf(stick);
        const int steps = stack()->count();

        const QString bad = dir.filePath(QStringLiteral("bad.phb"));
        QFile f(bad);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
        QVERIFY(!w->openPage(bad));
        QVERIFY2(w->lastError().contains(QLatin1String("bad.phb")), qPrintable(w->lastError()));
        QVERIFY2(w->lastError().contains(says), qPrintable(w->lastError()));
        QCOMPARE(w->page()->objects(), objs);
        QCOMPARE(docOf(stick), stickDoc);
        QCOMPARE(stack()->count(), steps);
        QCOMPARE(w->currentFile(), good);
        QVERIFY(!w->openPage(dir.filePath(QStringLiteral("missing.phb"))));
        QCOMPARE(w->page()->objects(), objs);
    }

    // Pages saved before objects carried their type and checksum still open.
    void aPageOfTheFirstFormatStillOpens()
    {
        QByteArray stick; // the host's first stream format: a stick with its handle dragged
        {
            QDataStream s(&stick, QIODevice::WriteOnly);
            s.setVersion(QDataStream::Qt_5_15);
            s << quint32(0x50485953) << quint16(1) << QColor() << QColor() << QColor(Qt::black) << qint32(Qt::SolidLine)
              << qint32(1) << QColor() << qint32(0) << false << QSizeF(337, 13) << QRectF(0, 0, 337, 13) << quint32(1)
              << 266.96 << 70.801;
        }
        QByteArray body;
        {
            QDataStream out(&body, QIODevice::WriteOnly);
            out.setVersion(QDataStream::Qt_5_15);
            out << quint32(1) << qint32(107) << QPointF(40, 50) << 0.0 << 1.0 << 1.0 << stick;
        }
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("old.phb"));
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(pageBytes(body, 1));
        f.close();
        QVERIFY2(w->openPage(path), qPrintable(w->lastError()));
        CWBPhysicalObject *o = w->page()->objects().value(0);
        QVERIFY(o);
        QCOMPARE(o->content()->controlNodes().at(0)->rect().topLeft(), QPointF(266.96, 70.801));
        QVERIFY(o->content()->document()->namedNode(QStringLiteral("bevel1"))->numAttribute(QStringLiteral("rotate_angle")) > 10);
        // Its first format is for its own pages only: a lone stream of it is refused.
        CWBPhysicalObject *fresh = BoardPage::create(107);
        QDataStream in(stick);
        QVERIFY(!fresh->content()->load(in));
        fresh->Release();
    }

    void oddPlacementsBehindAValidChecksumAreRefused()
    {
        // Whole states of real apparatus, placed with every kind of odd number.
        QMap<int, QByteArray> states;
        for (int type : {109, 202, 102, 107, 501}) {
            CWBPhysicalObject *o = BoardPage::create(type);
            states.insert(type, o->content()->record());
            o->Release();
        }
        const double odd[] = {0, 1, -1, 0.5, 1e300, -1e300, qInf(), -qInf(), qQNaN(), 1e7, 359.9, 1e-9};
        QRandomGenerator rng(7);
        int loaded = 0;
        for (int round = 0; round < 400; ++round) {
            QByteArray body;
            QDataStream out(&body, QIODevice::WriteOnly);
            out.setVersion(QDataStream::Qt_5_15);
            const int n = rng.bounded(4);
            out << quint32(round % 7 == 0 ? n + 1 : n); // sometimes one more than there is
            for (int i = 0; i < n; ++i) {
                const int type = states.keys().at(rng.bounded(states.size()));
                QByteArray state = states.value(type);
                if (rng.bounded(6) == 0)
                    state.truncate(rng.bounded(state.size()));
                auto pick = [&]() { return odd[rng.bounded(int(sizeof odd / sizeof *odd))]; };
                out << qint32(rng.bounded(8) == 0 ? 99 + rng.bounded(3) : type) << QPointF(pick(), pick()) << pick()
                    << pick() << pick() << state;
            }
            out << QByteArray(); // no recording
            QList<CWBPhysicalObject *> objs;
            QString error;
            if (BoardPage::deserialize(pageBytes(body), &objs, &error)) {
                ++loaded;
                for (CWBPhysicalObject *o : objs) {
                    QVERIFY(std::isfinite(o->pos().x()) && std::isfinite(o->pos().y()));
                    QVERIFY(std::isfinite(o->rotation()) && o->scale() > 0 && std::isfinite(o->scale()));
                    o->Release();
                }
            } else {
                QVERIFY(objs.isEmpty());
                QVERIFY(!error.isEmpty());
            }
        }
        QVERIFY(loaded > 0 && loaded < 400);
    }

    void exportsDrawThePageAndOneApparatus()
    {
        QTemporaryDir dir;
        QVERIFY(!w->exportPage(dir.filePath(QStringLiteral("empty.svg"))));
        QVERIFY(!w->lastError().isEmpty());
        w->place(109, QPointF(300, 100));
        w->place(202, QPointF(300, 350));
        CWBPhysicalObject *wedge = w->place(102, QPointF(600, 350));
        wedge->setRotation(-20);

        const QString svgPath = dir.filePath(QStringLiteral("page.svg"));
        QVERIFY(w->exportPage(svgPath));
        QFile f(svgPath);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray svg = f.readAll();
        std::unique_ptr<QSvgTinyDocument> parsed(QSvgTinyDocument::load(svg));
        QVERIFY2(parsed, qPrintable(QSvgTinyDocument::lastError()));
        QCOMPARE(svg.count("<svg"), 1);
        QCOMPARE(svg.count("<g transform=\"matrix("), 3);
        QVERIFY(!svg.contains("control_1")); // handles are for the screen only
        QFile::remove(QStringLiteral(ARTEFACT_DIR "/export-page.svg"));
        QFile::copy(svgPath, QStringLiteral(ARTEFACT_DIR "/export-page.svg"));

        const QString pngPath = dir.filePath(QStringLiteral("page.png"));
        QVERIFY(w->exportPage(pngPath));
        const QImage png(pngPath);
        QVERIFY(!png.isNull());
        int dark = 0;
        for (int y = 0; y < png.height(); y += 2)
            for (int x = 0; x < png.width(); x += 2)
                dark += qGray(png.pixel(x, y)) < 128;
        QVERIFY(dark > 100);
        png.save(QStringLiteral(ARTEFACT_DIR "/export-page.png"));

        w->view()->select(wedge);
        QVERIFY(w->exportSelected(dir.filePath(QStringLiteral("wedge.png"))));
        QVERIFY(w->exportSelected(dir.filePath(QStringLiteral("wedge.svg"))));
        const QImage one(dir.filePath(QStringLiteral("wedge.png")));
        QVERIFY(!one.isNull() && one.width() < png.width());
        QVERIFY(!w->exportPage(dir.filePath(QStringLiteral("page.bmp"))));
    }

    void exportsOfManyObjectsShowProgress()
    {
        QTemporaryDir dir;
        for (int i = 0; i < BoardWindow::kProgressThreshold + 2; ++i)
            w->place(107 + (i % 2) * 2, QPointF(100 + 40 * i, 100 + 30 * i));
        const int n = w->page()->objects().size();
        QVector<int> seen;
        QVERIFY(w->page()->exportPage(dir.filePath(QStringLiteral("a.png")), nullptr, [&](int done, int total) {
            seen.append(done);
            return total == n;
        }));
        QCOMPARE(seen.size(), n + 1);
        QCOMPARE(seen.last(), n);
        // Cancelled half-way: nothing is written.
        QVERIFY(!w->page()->exportPage(dir.filePath(QStringLiteral("b.svg")), nullptr, [](int done, int) { return done < 3; }));
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("b.svg"))));

        bool dialogShown = false;
        QTimer::singleShot(0, this, [&]() { dialogShown = w->findChild<QProgressDialog *>(QStringLiteral("exportProgress")); });
        QVERIFY(w->exportPage(dir.filePath(QStringLiteral("c.svg"))));
        QVERIFY(dialogShown);
    }

    void everyLabelKeyHasBothLanguages()
    {
        // Every menu, action, dock, hint and toolbox name, in both languages.
        for (Strings::Language lang : {Strings::Chinese, Strings::English}) {
            Strings::clearMissing();
            w->setLanguage(lang);
            QVERIFY2(Strings::missing().isEmpty(), qPrintable(Strings::missing().join(QLatin1Char(' '))));
        }
        int n = 0;
        const PhysicalTypeInfo *t = physical_TypeTable(&n);
        for (int i = 0; i < n; ++i) {
            QVERIFY2(Strings::hasTypeName(t[i].type, Strings::English), t[i].className);
            QVERIFY2(Strings::hasTypeName(t[i].type, Strings::Chinese), t[i].className);
            CWBPhysicalObject *o = BoardPage::create(t[i].type);
            QVERIFY(o);
            CSVGBase *c = o->content();
            QStringList keys;
            QJsonArray settings;
            c->GetSettingArray(settings);
            for (const QJsonValue &v : settings) {
                const QJsonObject item = v.toObject();
                keys << item.value(QStringLiteral("label")).toString() << item.value(QStringLiteral("unit")).toString();
                for (const QJsonValue &opt : item.value(QStringLiteral("options")).toArray())
                    keys << opt.toString();
            }
            for (const CSVGPropItem *p : c->propItems()) {
                keys << p->name() << keysInStream(p->comboData());
                keys << c->getPropName(p->attributeId()) << c->getPropName(p->propId());
            }
            for (int id : {5002, 5005})
                keys << c->getPropName(id);
            o->Release();
            for (const QString &k : keys) {
                if (!k.startsWith(QLatin1String("IDS_")))
                    continue;
                QVERIFY2(Strings::has(k, Strings::English), qPrintable(QStringLiteral("%1: %2").arg(t[i].type).arg(k)));
                QVERIFY2(Strings::has(k, Strings::Chinese), qPrintable(QStringLiteral("%1: %2").arg(t[i].type).arg(k)));
            }
        }
        // A key nobody has translated yet still reads as words.
        QCOMPARE(Strings::text(QStringLiteral("IDS_PHYSICSOBJ_NEW_THING")), QStringLiteral("New thing"));
    }

    void chineseShowsNoRawKey()
    {
        w->setLanguage(Strings::Chinese);
        QCOMPARE(w->toolbox()->itemText(Toolbox::Mechanics), QStringLiteral("力学"));
        int n = 0;
        const PhysicalTypeInfo *t = physical_TypeTable(&n);
        for (int i = 0; i < n; ++i) {
            CWBPhysicalObject *o = w->place(t[i].type, QPointF(200 + 30 * i, 200 + 20 * i));
            QVERIFY(o);
            QStringList shown;
            for (QLabel *l : w->findChildren<QLabel *>())
                shown << l->text();
            for (QAbstractButton *b : w->findChildren<QAbstractButton *>())
                shown << b->text();
            for (QComboBox *c : w->findChildren<QComboBox *>())
                for (int k = 0; k < c->count(); ++k)
                    shown << c->itemText(k);
            for (QListWidget *l : w->findChildren<QListWidget *>())
                for (int k = 0; k < l->count(); ++k)
                    shown << l->item(k)->text();
            for (QAction *a : w->menuBar()->actions()) {
                shown << a->text();
                if (a->menu())
                    for (QAction *s : a->menu()->actions())
                        shown << s->text();
            }
            shown << w->windowTitle();
            for (const QString &s : shown) {
                QVERIFY2(!s.contains(QLatin1String("IDS_")), qPrintable(s));
                QVERIFY2(!s.contains(QLatin1String("BOARD_")), qPrintable(s));
            }
            QVERIFY(shown.contains(QStringLiteral("属性")) || w->findChildren<QDockWidget *>().size() == 2);
        }
        QCOMPARE(w->panel()->findChildren<QLabel *>().isEmpty(), false);
    }

    void pageOfSeveralApparatus()
    {
        w->fillDemoPage();
        QVERIFY(w->page()->objects().size() >= 5);
        w->view()->select(w->page()->objects().at(2));
        QCoreApplication::processEvents();
        QVERIFY(w->grab().save(QStringLiteral(ARTEFACT_DIR "/board.png")));
    }
};

// Qt's platform plugin keeps its screen objects until process exit; that is not ours.
extern "C" __attribute__((visibility("default"), used)) const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libqoffscreen\nleak:libfontconfig\n";
}

QTEST_MAIN(BoardTest)
#include "test_board.moc"
