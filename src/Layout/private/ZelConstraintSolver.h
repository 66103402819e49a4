// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

/// Finds values for variables so that linear goals are met in the order of their priorities.
///
/// A goal says that a sum of variables times factors, plus a constant, is equal to, not above or not below zero. A goal
/// of priority 1000 or more is required. The others are met as well as can be: the sum of the misses of one priority is
/// made as small as the higher priorities allow, and never at their cost. Where several solutions have the same sum,
/// the goals of that priority are met in the order in which they were added, so that all misses are determined.
/// Required goals are taken in the order in which they were added; one that contradicts those before it is left out.
class ZelConstraintSolver
{
public:
    enum Relation { NotAbove = -1, Equal = 0, NotBelow = 1 };
    struct Term
    {
        int variable = 0;
        double factor = 1;
    };
    static constexpr float Required = 1000;

    /// Forgets everything and keeps the storage. The variables are then numbered from 0 to variables - 1.
    void reset(int variables);
    void addGoal(std::span<const Term> terms, double constant, Relation relation, float priority);
    void addGoal(std::initializer_list<Term> terms, double constant, Relation relation, float priority);
    int goalCount() const { return int(m_goals.size()); }
    void solve();

    /// The value of a variable after solve(); 0 for one that no goal determines.
    double value(int variable) const { return m_values[size_t(variable)]; }
    /// The required goals that were left out, as indexes in the order of adding.
    const std::vector<int> &leftOut() const { return m_leftOut; }

private:
    struct Goal
    {
        size_t firstTerm = 0;
        size_t termCount = 0;
        double constant = 0;
        Relation relation = Equal;
        float priority = Required;
    };
    struct Variable
    {
        int row = -1;            // its row while it is basic
        int column = -1;         // its column while it is not
        bool restricted = false; // whether it must not be below zero
        bool introduced = false; // whether it is or was in the tableau
        double value = 0;        // its value after it left the tableau
    };

    double *row(int index) { return m_cells.data() + size_t(index) * size_t(m_stride); }
    int addVariable();
    int addColumn(int variable);
    void removeColumn(int column);
    void appendRow(int variable);
    void removeRow(int index);
    void growColumns();
    void cleanColumns();

    void express(const Goal &goal);
    int freeColumn() const;
    void define(int column);
    void collectUsed(const std::vector<double> &line);
    void substitute(double *target, const double *source, int column) const;
    void pivot(int pivotRow, int column);

    void enter(const Goal &goal);
    void enterEquality();
    void enterInequality();
    bool enterRequired(const Goal &goal);
    void solveLevel(std::span<const int> goals);
    void collectObjective();
    void minimize();
    int enteringColumn(bool byIndex) const;
    int leavingRow(int column);
    void keepOptimum();
    void settle(int variable);
    bool isDetermined() const;

    std::vector<Goal> m_goals;
    std::vector<Term> m_terms;
    std::vector<double> m_values;
    std::vector<int> m_leftOut;
    int m_variableCount = 0;

    std::vector<Variable> m_variables;  // the caller's, then slacks and misses
    std::vector<double> m_cells;        // rows of m_stride cells; cell 0 is the constant
    std::vector<int> m_rowVariables;    // the basic variable of each row
    std::vector<int> m_columnVariables; // the other variables by column; -1 is unused
    std::vector<int> m_unusedColumns;   // zero in all rows
    std::vector<int> m_dirtyColumns;    // dropped, and not cleared yet
    std::vector<double> m_expression;   // the goal being entered
    std::vector<double> m_objective;    // what minimize() lowers
    std::vector<double> m_replacement;  // scratch of pivot
    std::vector<int> m_used;            // the cells, of what is being substituted, that are not zero
    std::vector<int> m_misses;          // the misses of the level, in the order of its goals
    int m_stride = 0;
    int m_introduced = 0;
    int m_columnsInUse = 0;
};
