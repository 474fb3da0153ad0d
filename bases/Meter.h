#pragma once
// Common base of the dial meters: a pointer turning about a pivot within a fixed arc,
// driven by one handle dragged round the dial or set from a reading.
#include "bases/Export.h"
#include <QJsonObject>
#include <svgbase.h>

// The angle of a point seen from a centre (part of the library's entry points; the
// meters turn their pointers by it).
PHYSICALOBJECT_SHARED_EXPORT double getCirclePointDegree(QPointF point, QPointF center);

class PHYSICALOBJECT_SHARED_EXPORT CMeter : public CSVGBase
{
public:
    explicit CMeter(CSVGObj *owner);
    ~CMeter() override;

    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    bool loadSVG(bool bLoad) override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;
    QString getPropName(int id) override;

    /* 63 */ virtual void angelChangedByControl(double angle);

    double getAngle();
    void setAngel(double angle);

    double getCurrentAngle() const { return currentAngle; }
    double getMinAngle() const { return minAngle; }
    double getMaxAngle() const { return maxAngle; }

protected:
    // The pointer's place on the scale, 0 at the left end and 1 at the right.
    double scaleFraction(double angle) const { return maxAngle > minAngle ? (angle - minAngle) / (maxAngle - minAngle) : 0.0; }
    // Puts the handle on its circle at the given pointer angle.
    void placeHandle(QSvgNode *handle, QPointF pivot, QSizeF size, double angle);
    // A typed reading: currentAngle keeps the angle unclamped, the pointer stops at the arc's end.
    void setTypedAngle(double angle);
    // The reading typed into "idMeterValue", read in double or (as most meters read it)
    // single precision. False when there is none, or when it is no finite number.
    static bool typedReading(const QMap<QString, QString> &values, bool single, double &reading);
    // Range switch between two ranges five times apart, keeping the reading. The angle
    // starts from currentAngle, which the switch itself leaves alone. False for an
    // index that is no range.
    bool changeGrade(int &grade, int newGrade);
    // Panel items of the family.
    QJsonObject gradeItem(int grade, const QString &small, const QString &large) const;
    QJsonObject valueItem(double reading, int decimals, const QString &min, const QString &max) const;
    static QString readingText(double reading, int decimals);

    // Two-range meters (grade 0 the small range, 1 the large one).
    // Reading at the angle on a scale of full-scale value `full`; below 0.01 shows as 0.
    double rangeReading(double angle, double full) const;
    // Posts the reading on the chosen range's scale, 2 decimals.
    void postRangeReading(double angle, double full);
    // The panel items: the range and the reading on the present range.
    void appendRangeItems(QJsonArray &array, int grade, const QString &small, const QString &large, double smallFull,
                          double largeFull);
    // "idMeterGrade" switches the range; true when the map held it (then nothing else is read).
    bool applyGradeSetting(const QMap<QString, QString> &values, int &grade);
    // A typed reading on a scale of full-scale value `full`.
    void setTypedReading(double reading, double full);
    // Attribute ids 2804 and 2805: the range is kept apart from the pointer.
    void keepGrade(int id, int &grade, int &savedGrade);

    int startMode = 0;
    double maxAngle = 0.0;
    double minAngle = 0.0;
    double savedPointerAngle = 0.0;
    double savedCurrentAngle = 0.0;
    double currentAngle = 0.0;
    double handleRadius = 0.0;
    bool initialized = false;
};
