// PagesDAvance : un second fil fait d'avance les pages neuves d'un Tableau qu'une lecture remplit.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

#include "store/tableau.h"

namespace arbolix {

// Une page neuve de personnes pèse 600 Ko que le noyau doit mettre à zéro avant de la donner :
// demandée ici, sur l'autre cœur, elle arrive au lecteur déjà en mémoire. Rien n'y est construit
// (le lecteur y construit ses fiches, dans son propre cache) : aucun objet ne passe d'un fil à
// l'autre, seulement de la place.
// Le fil garde au plus `avance` pages prêtes ; celles qu'on n'a pas prises sont simplement rendues.
// Tant qu'il vit, l'objet est installé sur le tableau ; sa destruction l'en retire et attend le fil.
template <typename T>
class PagesDAvance final : public FournisseurPages<T> {
public:
    using Page = std::vector<T>;

    explicit PagesDAvance(Tableau<T>& tableau, std::size_t avance = 4) : tableau_(tableau), avance_(avance) {
        try {
            fil_ = std::thread([this] { Preparer(); });
        } catch (const std::system_error&) {
            return;  // pas de second fil : le tableau fait ses pages lui-même, comme d'habitude
        }
        tableau_.Fournisseur(this);
    }

    ~PagesDAvance() {
        if (!fil_.joinable()) return;
        tableau_.Fournisseur(nullptr);
        {
            std::lock_guard<std::mutex> garde(verrou_);
            arret_ = true;
        }
        place_.notify_one();
        fil_.join();
    }

    PagesDAvance(const PagesDAvance&) = delete;
    PagesDAvance& operator=(const PagesDAvance&) = delete;

    // N'attend jamais le fil : s'il n'a rien de prêt (autre cœur occupé), le tableau fait sa page.
    std::unique_ptr<Page> PageNeuve() override {
        std::unique_ptr<Page> page;
        {
            std::lock_guard<std::mutex> garde(verrou_);
            if (pretes_.empty()) return nullptr;
            page = std::move(pretes_.front());
            pretes_.pop_front();
        }
        place_.notify_one();
        return page;
    }

    std::size_t Pretes() {
        std::lock_guard<std::mutex> garde(verrou_);
        return pretes_.size();
    }

private:
    void Preparer() {
        std::unique_lock<std::mutex> verrou(verrou_);
        for (;;) {
            place_.wait(verrou, [this] { return arret_ || pretes_.size() < avance_; });
            if (arret_) return;
            verrou.unlock();
            std::unique_ptr<Page> page;
            try {
                page = Tableau<T>::PageReservee();
            } catch (const std::bad_alloc&) {
                return;  // le lecteur, qui fait alors ses pages, rencontrera le manque et le dira
            }
            verrou.lock();
            pretes_.push_back(std::move(page));
        }
    }

    Tableau<T>& tableau_;
    const std::size_t avance_;
    std::mutex verrou_;
    std::condition_variable place_;  // une page prise ou l'arrêt demandé
    std::deque<std::unique_ptr<Page>> pretes_;
    bool arret_ = false;
    std::thread fil_;  // en dernier : démarré quand tout le reste est construit
};

}  // namespace arbolix
