// pane.h: the parts that the main window is made of: frames with a caption, pictures, pages with tabs.

#pragma once

#include <QLabel>
#include <QStackedWidget>
#include <QWidget>

class QButtonGroup;
class QGridLayout;

/// A frame. Its caption stands in the upper margin, with a box around or without, left of the content, or not
/// at all.
class Pane : public QWidget
{
public:
    enum class Look { Titled, Section, Row, Bare };

    Pane(Look look, QWidget* parent);
    void SetCaption(const QString& caption);
    const QString& Caption() const { return Text; }
    /// Height of the caption's line above the content.
    int CaptionHeight() const;
    /// Narrow margins, for a small pane.
    void SetNarrow();
    /// Room at the right of the caption's line that belongs to something else.
    int CaptionRoom = 0;

protected:
    void paintEvent(QPaintEvent*) override;
    void changeEvent(QEvent* event) override;

private:
    void SetMargins();

    Look Shown;
    QString Text;
    bool Narrow = false;
};

/// A text in one line that is shortened when its place is too narrow; its tip then tells it whole.
class ElidedLabel : public QLabel
{
public:
    using QLabel::QLabel;
    Qt::TextElideMode Elide = Qt::ElideRight;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;
};

/// A drawn picture that fills its place.
class PictureView : public QWidget
{
public:
    PictureView(const QString& name, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString Name;
};

/// Pages of which one is shown, with their captions as buttons above, three in a row.
class TabPane : public QWidget
{
public:
    explicit TabPane(QWidget* parent);
    void SetCaptions(const QStringList& captions);
    void SetCurrent(int index);
    /// The page of an index, made on demand.
    QWidget* Page(int index);
    QButtonGroup* Buttons() const { return Group; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QGridLayout* Top;
    QStackedWidget* Stack;
    QButtonGroup* Group;
};
