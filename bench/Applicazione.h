#pragma once

#include <QApplication>
#include <optional>

namespace bravona {

// What painting needs, without a display.
class Applicazione {
public:
    Applicazione()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        applicazione_.emplace(argomenti_, valori_);
    }

private:
    int argomenti_ = 1;
    char nome_[6] = "bench";
    char* valori_[2] = {nome_, nullptr};
    std::optional<QApplication> applicazione_;
};

}  // namespace bravona
