#pragma once

#include <QByteArray>

#include <string>

class QIODevice;

namespace arbo {

// Reads the whitespace-separated numbers of a text file (tree parameters, DEM,
// simulation) a piece at a time, so the memory held does not grow with the
// file. A token is converted only when the whole of it is a number of the asked
// type, in the classic notation whatever the locale (a point as the decimal
// separator, an optional leading '+'); floating-point numbers must be finite.
// Remembers the line and the text of the last token for messages.
class BralecStevil {
public:
    // Longer tokens are no number of any type read here.
    static constexpr int najdaljsiZeton = 64;

    explicit BralecStevil(QIODevice& naprava);

    bool beri(int& vrednost);
    bool beri(unsigned long long& vrednost);
    bool beri(float& vrednost);
    bool beri(double& vrednost);
    // "0" or "1".
    bool beri(bool& vrednost);

    // The rest of the current line without its line feed, as a line reader with a
    // buffer of najvecZnakov + 1 bytes reads it: false for a longer line and at
    // the end of the data.
    bool beriVrstico(std::string& vrstica, int najvecZnakov);

    // Only whitespace is left.
    bool naKoncu();

    // The line (from 1) of the last token read, and its text: empty when the
    // data ended before it, cut to najdaljsiZeton characters when longer.
    int vrstica() const { return vrsticaZetona; }
    const std::string& zeton() const;

private:
    QIODevice& naprava;
    QByteArray kos;
    int pozicija = 0;
    int trenutnaVrstica = 1;
    int vrsticaZetona = 1;
    // A token inside the loaded piece is converted from there; its text is
    // copied out only when asked for or before the piece is replaced.
    mutable std::string besediloZetona;
    mutable int zetonVKosu = -1; // where in kos, or -1: the text is in besediloZetona
    int dolzinaZetona = 0;
    bool predolg = false;

    // The next byte without taking it; -1 at the end of the data.
    int poglej();
    void vzemi();
    void preskociPresledke();
    // The next token into besediloZetona; false at the end of the data and for
    // a token longer than najdaljsiZeton.
    bool naslednjiZeton();
    void ohraniZeton() const;
    template <typename T> bool stevilo(T& vrednost);
};

} // namespace arbo
