// AcGeTol and the global tolerance of the host's geometry library.
#pragma once

class AcGeTol {
public:
    AcGeTol() = default;
    double equalPoint() const { return m_point; }
    double equalVector() const { return m_vector; }
    void setEqualPoint(double val) { m_point = val; }
    void setEqualVector(double val) { m_vector = val; }

private:
    double m_point = 1e-10;
    double m_vector = 1e-12;
};

struct AcGeContext {
    inline static AcGeTol gTol{};
};
