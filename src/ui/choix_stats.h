// La liste de choix des statistiques : onze cases, toutes cochées à l'ouverture.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

namespace Ui {
class ChoixStats;
}

namespace arbolix {

class ChoixStats : public QDialog {
    Q_OBJECT
public:
    explicit ChoixStats(QWidget* parent);
    ~ChoixStats() override;
    // Les index cochés, dans l'ordre de la liste.
    std::vector<int> Choix() const;
    void Cocher(int index, bool coche);

private:
    std::unique_ptr<Ui::ChoixStats> ui_;
};

}  // namespace arbolix
