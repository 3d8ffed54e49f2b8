// code_list.h: a list of codes with their descriptions, or of plain texts.

#pragma once

#include <QListWidget>

/// Shows "G00 <tab> Rapid Traverse" in two columns; a description that is too long goes on in the next line.
class CodeList : public QListWidget
{
public:
    explicit CodeList(QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
};
