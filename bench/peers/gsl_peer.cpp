// The GNU Scientific Library.

#include "workloads.h"

#include <gsl/gsl_fit.h>
#include <gsl/gsl_multifit.h>
#include <gsl/gsl_multifit_nlinear.h>
#include <gsl/gsl_multimin.h>
#include <gsl/gsl_spline.h>

namespace {

using peers::TPoints, peers::TRows, peers::TValues;

void FitLine(const TPoints& Points) {
    double offset = 0, slope = 0, c00 = 0, c01 = 0, c11 = 0, chi = 0;
    gsl_fit_linear(Points.X.data(), 1, Points.Y.data(), 1, Points.X.size(), &offset, &slope, &c00, &c01, &c11,
                   &chi);
    peers::Keep(slope);
}

void FitPolynomial(const TPoints& Points) {
    constexpr std::size_t columns = 6;
    const std::size_t count = Points.X.size();
    gsl_matrix* design = gsl_matrix_alloc(count, columns);
    gsl_matrix* covariance = gsl_matrix_alloc(columns, columns);
    gsl_vector* coefficients = gsl_vector_alloc(columns);
    gsl_multifit_linear_workspace* workspace = gsl_multifit_linear_alloc(count, columns);
    for (std::size_t i = 0; i < count; ++i) {
        double power = 1;
        for (std::size_t k = 0; k < columns; ++k, power *= Points.X[i]) gsl_matrix_set(design, i, k, power);
    }
    const gsl_vector_const_view y = gsl_vector_const_view_array(Points.Y.data(), count);
    double chi = 0;
    gsl_multifit_linear(design, &y.vector, coefficients, covariance, &chi, workspace);
    peers::Keep(chi);
    gsl_multifit_linear_free(workspace);
    gsl_vector_free(coefficients);
    gsl_matrix_free(covariance);
    gsl_matrix_free(design);
}

void FitBySimplex(const TPoints& Points, double Goal) {
    gsl_multimin_function function{[](const gsl_vector* c, void* points) {
                                       return peers::DecaySum(*static_cast<const TPoints*>(points), c->data);
                                   },
                                   3, const_cast<TPoints*>(&Points)};
    gsl_vector* start = gsl_vector_alloc(3);
    gsl_vector* step = gsl_vector_alloc(3);
    for (std::size_t i = 0; i < 3; ++i) {
        gsl_vector_set(start, i, peers::CDecayStart[i]);
        gsl_vector_set(step, i, peers::CDecayStart[i] * 1.05);
    }
    auto* simplex = gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, 3);
    gsl_multimin_fminimizer_set(simplex, &function, start, step);
    int left = 10000;
    do gsl_multimin_fminimizer_iterate(simplex); // has no value before
    while (simplex->fval > Goal && --left > 0);
    if (simplex->fval > Goal) std::fprintf(stderr, "gsl_peer: the simplex did not converge\n");
    gsl_multimin_fminimizer_free(simplex);
    gsl_vector_free(start);
    gsl_vector_free(step);
}

int Rests(const gsl_vector* C, void* Points, gsl_vector* Rests) {
    const auto& points = *static_cast<const TPoints*>(Points);
    for (std::size_t i = 0; i < points.X.size(); ++i)
        Rests->data[i] = C->data[0] * std::exp(-C->data[1] * points.X[i]) + C->data[2] - points.Y[i];
    return GSL_SUCCESS;
}
int Slopes(const gsl_vector* C, void* Points, gsl_matrix* Slopes) {
    const auto& points = *static_cast<const TPoints*>(Points);
    for (std::size_t i = 0; i < points.X.size(); ++i) {
        const double power = std::exp(-C->data[1] * points.X[i]);
        gsl_matrix_set(Slopes, i, 0, power);
        gsl_matrix_set(Slopes, i, 1, -C->data[0] * points.X[i] * power);
        gsl_matrix_set(Slopes, i, 2, 1);
    }
    return GSL_SUCCESS;
}

void FitByDerivatives(const TPoints& Points, double Goal) {
    gsl_multifit_nlinear_parameters parameters = gsl_multifit_nlinear_default_parameters();
    parameters.solver = gsl_multifit_nlinear_solver_cholesky;
    gsl_multifit_nlinear_fdf functions{};
    functions.f = Rests;
    functions.df = Slopes;
    functions.n = Points.X.size();
    functions.p = 3;
    functions.params = const_cast<TPoints*>(&Points);
    auto* fit = gsl_multifit_nlinear_alloc(gsl_multifit_nlinear_trust, &parameters, functions.n, functions.p);
    const gsl_vector_const_view start = gsl_vector_const_view_array(peers::CDecayStart, 3);
    gsl_multifit_nlinear_init(&start.vector, &functions, fit);
    int info = 0;
    gsl_multifit_nlinear_driver(100, 1e-8, 1e-8, 0, nullptr, nullptr, &info, fit);
    if (peers::DecaySum(Points, fit->x->data) > Goal)
        std::fprintf(stderr, "gsl_peer: the fit did not converge\n");
    gsl_multifit_nlinear_free(fit);
}

void Fits(const TRows& Rows) {
    const TPoints sine = peers::SineOf(1000000), decay = peers::DecayOf(peers::CDecayPoints);
    const double goal = peers::DecayGoal(decay);
    Rows.Time(peers::CLineFit, [&] { FitLine(sine); });
    Rows.Time(peers::CPolynomialFit, [&] { FitPolynomial(sine); });
    Rows.Time(peers::CSimplexFit, [&] { FitBySimplex(decay, goal); });
    Rows.Time(peers::CAnyFit, [&] { FitByDerivatives(decay, goal); });
}

gsl_spline* AkimaOf(const TPoints& Points) {
    gsl_spline* spline = gsl_spline_alloc(gsl_interp_akima, Points.X.size());
    gsl_spline_init(spline, Points.X.data(), Points.Y.data(), Points.X.size());
    return spline;
}

void Curves(const TRows& Rows) {
    const TPoints million = peers::UnevenOf(1000000), knots = peers::UnevenOf(100000);
    gsl_spline* first = AkimaOf(million);
    Rows.Time(peers::CAkimaBuild,
              [&] { gsl_spline_init(first, million.X.data(), million.Y.data(), million.X.size()); });
    gsl_spline_free(first);
    gsl_spline* spline = AkimaOf(knots);
    gsl_interp_accel* accelerator = gsl_interp_accel_alloc();
    const TValues at = peers::BetweenOf(knots, 1000000);
    TValues values(at.size());
    Rows.Time(peers::CAkimaValues, [&] {
        for (std::size_t i = 0; i < at.size(); ++i) values[i] = gsl_spline_eval(spline, at[i], accelerator);
        peers::Keep(values[values.size() / 2]);
    });
    gsl_interp_accel_free(accelerator);
    gsl_spline_free(spline);
}

} // namespace

int main(int Count, char** Arguments) {
    const TRows rows(Count, Arguments);
    Fits(rows);
    Curves(rows);
}
