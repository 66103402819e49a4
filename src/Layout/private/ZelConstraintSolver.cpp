// SPDX-License-Identifier: MIT
#include "Layout/private/ZelConstraintSolver.h"

#include <algorithm>
#include <cmath>
#include <numeric>

// The method is the partitioning algorithm for linear goal programming (J. L. Arthur and A. Ravindran, "PAGP, a
// partitioning algorithm for (linear) goal programming problems", ACM Transactions on Mathematical Software 6, 1980): a
// simplex tableau takes in the goals of one priority after the other. After the sum of misses of a priority has been
// minimised, every column with a positive reduced cost is dropped from the tableau, because to use its variable would
// cost that priority; what is left spans exactly the solutions that are optimal so far. No weights are involved, so no
// number of low priorities outweighs a high one.
//
// The tableau is a dictionary: each row gives a basic variable as a constant plus the other variables times
// coefficients, and the others are zero. Slacks and misses are restricted (never negative). The caller's variables are
// free: the first goal that can be solved for one defines it. From then on its row only follows the others and never
// limits a pivot. Rows of restricted variables therefore hold no free columns, and the simplex sees a small problem.
// As soon as no column is left, everything is determined and the lower priorities need not be looked at.

namespace {
constexpr double g_negligible = 1e-9; // coefficients and reduced costs below this are rounding noise
constexpr double g_noise = 1e-12;     // cells below this are set to zero
constexpr double g_tolerance = 1e-6;  // how far a required goal may be missed, in points
} // namespace

void ZelConstraintSolver::reset(int variables)
{
    m_variableCount = variables;
    m_goals.clear();
    m_terms.clear();
    m_leftOut.clear();
    m_values.assign(size_t(variables), 0);
    m_variables.assign(size_t(variables), {});
    m_rowVariables.clear();
    m_columnVariables.assign(1, -1); // column 0 is the constant
    m_unusedColumns.clear();
    m_dirtyColumns.clear();
    m_columnsInUse = 0;
    m_cells.clear();
    m_introduced = 0;
    if (m_stride == 0)
        growColumns();
}

void ZelConstraintSolver::addGoal(std::span<const Term> terms, double constant, Relation relation, float priority)
{
    m_goals.push_back({m_terms.size(), terms.size(), constant, relation, priority});
    m_terms.insert(m_terms.end(), terms.begin(), terms.end());
}

void ZelConstraintSolver::addGoal(std::initializer_list<Term> terms, double constant, Relation relation, float priority)
{
    addGoal(std::span(terms.begin(), terms.size()), constant, relation, priority);
}

void ZelConstraintSolver::solve()
{
    std::vector<int> order(m_goals.size());
    std::iota(order.begin(), order.end(), 0);
    const auto priority = [&](int goal) { return std::min(m_goals[size_t(goal)].priority, Required); };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return priority(a) > priority(b); });

    for (size_t begin = 0, end = 0; begin < order.size() && !isDetermined(); begin = end) {
        const float level = priority(order[begin]);
        while (end < order.size() && priority(order[end]) == level)
            ++end;
        if (level < Required) {
            solveLevel(std::span(order).subspan(begin, end - begin));
            continue;
        }
        for (size_t i = begin; i < end; ++i) {
            if (!enterRequired(m_goals[size_t(order[i])]))
                m_leftOut.push_back(order[i]);
        }
    }
    for (size_t i = 0; i < size_t(m_variableCount); ++i) {
        const Variable &variable = m_variables[i];
        m_values[i] = variable.row >= 0 ? row(variable.row)[0] : variable.value;
    }
}

/// Whether no freedom is left. Lower priorities cannot change anything then.
bool ZelConstraintSolver::isDetermined() const
{
    return m_introduced == m_variableCount && m_columnsInUse == 0;
}

// ---- rows and columns

int ZelConstraintSolver::addVariable()
{
    m_variables.push_back({.restricted = true, .introduced = true});
    return int(m_variables.size()) - 1;
}

void ZelConstraintSolver::growColumns()
{
    const int stride = std::max(32, m_stride * 2);
    std::vector<double> cells(m_rowVariables.size() * size_t(stride), 0);
    for (size_t i = 0; i < m_rowVariables.size(); ++i)
        std::copy_n(m_cells.data() + i * size_t(m_stride), m_stride, cells.data() + i * size_t(stride));
    m_cells = std::move(cells);
    m_stride = stride;
    for (std::vector<double> *line : {&m_expression, &m_objective, &m_replacement})
        line->resize(size_t(stride), 0);
}

int ZelConstraintSolver::addColumn(int variable)
{
    if (m_unusedColumns.empty())
        cleanColumns();
    int column = int(m_columnVariables.size());
    if (m_unusedColumns.empty()) {
        if (column == m_stride)
            growColumns();
        m_columnVariables.push_back(variable);
    } else {
        column = m_unusedColumns.back();
        m_unusedColumns.pop_back();
        m_columnVariables[size_t(column)] = variable;
    }
    ++m_columnsInUse;
    m_expression[size_t(column)] = 0;
    m_objective[size_t(column)] = 0;
    m_variables[size_t(variable)].column = column;
    return column;
}

/// Drops the column: its variable is zero from now on. The cells of the rows in it count no more; they are cleared
/// before the column is used again.
void ZelConstraintSolver::removeColumn(int column)
{
    m_variables[size_t(m_columnVariables[size_t(column)])].column = -1;
    m_columnVariables[size_t(column)] = -1;
    m_dirtyColumns.push_back(column);
    --m_columnsInUse;
}

/// Clears all dropped columns in one walk through the rows, so that they can be used again.
void ZelConstraintSolver::cleanColumns()
{
    for (size_t i = 0; i < m_rowVariables.size(); ++i) {
        for (const int column : m_dirtyColumns)
            row(int(i))[column] = 0;
    }
    m_unusedColumns.swap(m_dirtyColumns);
}

/// Adds the expression as the definition of a variable.
void ZelConstraintSolver::appendRow(int variable)
{
    m_variables[size_t(variable)].row = int(m_rowVariables.size());
    m_rowVariables.push_back(variable);
    m_cells.insert(m_cells.end(), m_expression.begin(), m_expression.begin() + m_stride);
}

/// Takes out a row whose variable cannot change any more or is not needed. The last row moves into its place.
void ZelConstraintSolver::removeRow(int index)
{
    Variable &variable = m_variables[size_t(m_rowVariables[size_t(index)])];
    variable.value = row(index)[0];
    variable.row = -1;
    const int last = int(m_rowVariables.size()) - 1;
    if (index != last) {
        std::copy_n(row(last), m_stride, row(index));
        m_rowVariables[size_t(index)] = m_rowVariables[size_t(last)];
        m_variables[size_t(m_rowVariables[size_t(index)])].row = index;
    }
    m_rowVariables.pop_back();
    m_cells.resize(m_rowVariables.size() * size_t(m_stride));
}

// ---- algebra

/// Writes the goal's sum in terms of the columns.
void ZelConstraintSolver::express(const Goal &goal)
{
    std::fill(m_expression.begin(), m_expression.end(), 0);
    const double sign = goal.relation == NotAbove ? -1 : 1;
    m_expression[0] = sign * goal.constant;
    for (const Term &term : std::span(m_terms).subspan(goal.firstTerm, goal.termCount)) {
        Variable &variable = m_variables[size_t(term.variable)];
        const double factor = sign * term.factor;
        if (!variable.introduced) {
            variable.introduced = true;
            ++m_introduced;
            addColumn(term.variable);
        }
        if (variable.column >= 0) {
            m_expression[size_t(variable.column)] += factor;
        } else if (variable.row >= 0) {
            const double *definition = row(variable.row);
            for (size_t i = 0; i < m_columnVariables.size(); ++i)
                m_expression[i] += factor * definition[i];
        } else {
            m_expression[0] += factor * variable.value;
        }
    }
    for (size_t i = 1; i < m_columnVariables.size(); ++i) {
        if (m_columnVariables[i] < 0 || std::abs(m_expression[i]) < g_noise)
            m_expression[i] = 0;
    }
}

/// The column of the free variable with the greatest coefficient in the expression, or -1.
int ZelConstraintSolver::freeColumn() const
{
    int best = -1;
    double greatest = g_negligible;
    for (size_t i = 1; i < m_columnVariables.size(); ++i) {
        const int variable = m_columnVariables[i];
        const double size = std::abs(m_expression[i]);
        if (variable >= 0 && size > greatest && !m_variables[size_t(variable)].restricted) {
            best = int(i);
            greatest = size;
        }
    }
    return best;
}

/// Notes which cells of a line are not zero. Most are, and the loops over all rows skip them.
void ZelConstraintSolver::collectUsed(const std::vector<double> &line)
{
    m_used.assign(1, 0);
    for (size_t i = 1; i < m_columnVariables.size(); ++i) {
        if (line[i] != 0 && m_columnVariables[i] >= 0)
            m_used.push_back(int(i));
    }
}

/// Replaces the column's variable in the target by the source, whose used cells were noted.
void ZelConstraintSolver::substitute(double *target, const double *source, int column) const
{
    const double factor = target[column];
    if (factor == 0)
        return;
    target[column] = 0;
    for (const int i : m_used) {
        target[i] += factor * source[i];
        if (std::abs(target[i]) < g_noise)
            target[i] = 0;
    }
}

/// Solves expression = 0 for the column's variable, which becomes basic.
void ZelConstraintSolver::define(int column)
{
    const double factor = -1 / m_expression[size_t(column)];
    m_expression[size_t(column)] = 0;
    for (double &cell : m_expression)
        cell *= factor;
    collectUsed(m_expression);
    for (size_t i = 0; i < m_rowVariables.size(); ++i)
        substitute(row(int(i)), m_expression.data(), column);
    const int variable = m_columnVariables[size_t(column)];
    removeColumn(column);
    appendRow(variable);
}

/// Exchanges the row's variable and the column's.
void ZelConstraintSolver::pivot(int pivotRow, int column)
{
    const int width = int(m_columnVariables.size());
    double *source = row(pivotRow);
    const double factor = -1 / source[column];
    source[column] = 0;
    for (int i = 0; i < width; ++i)
        m_replacement[size_t(i)] = source[i] * factor;
    m_replacement[size_t(column)] = -factor;
    collectUsed(m_replacement);
    for (size_t i = 0; i < m_rowVariables.size(); ++i)
        substitute(row(int(i)), m_replacement.data(), column);
    substitute(m_objective.data(), m_replacement.data(), column);
    std::copy_n(m_replacement.data(), width, source);

    int &basic = m_rowVariables[size_t(pivotRow)];
    int &other = m_columnVariables[size_t(column)];
    m_variables[size_t(basic)].row = -1;
    m_variables[size_t(basic)].column = column;
    m_variables[size_t(other)].column = -1;
    m_variables[size_t(other)].row = pivotRow;
    std::swap(basic, other);
}

// ---- goals

/// Enters a goal that may be missed, with its misses as new variables.
void ZelConstraintSolver::enter(const Goal &goal)
{
    express(goal);
    const auto isUsed = [](double cell) { return cell != 0; };
    if (std::none_of(m_expression.begin() + 1, m_expression.begin() + int(m_columnVariables.size()), isUsed))
        return; // nothing can change how well it is met
    if (goal.relation == Equal)
        enterEquality();
    else
        enterInequality();
}

/// expression = above - below, both of them misses.
void ZelConstraintSolver::enterEquality()
{
    const int above = addVariable();
    const int below = addVariable();
    m_misses.insert(m_misses.end(), {above, below});
    if (const int column = freeColumn(); column >= 0) {
        const int aboveColumn = addColumn(above);
        const int belowColumn = addColumn(below);
        m_expression[size_t(aboveColumn)] = -1;
        m_expression[size_t(belowColumn)] = 1;
        define(column);
        return;
    }
    const bool isNegative = m_expression[0] < 0;
    if (isNegative)
        std::transform(m_expression.begin(), m_expression.end(), m_expression.begin(), std::negate());
    const int column = addColumn(isNegative ? above : below);
    m_expression[size_t(column)] = 1;
    appendRow(isNegative ? below : above);
}

/// expression = slack - miss.
void ZelConstraintSolver::enterInequality()
{
    const int slack = addVariable();
    const int miss = addVariable();
    m_misses.push_back(miss);
    if (const int column = freeColumn(); column >= 0) {
        const int slackColumn = addColumn(slack);
        const int missColumn = addColumn(miss);
        m_expression[size_t(slackColumn)] = -1;
        m_expression[size_t(missColumn)] = 1;
        define(column);
        return;
    }
    const bool isNegative = m_expression[0] < 0;
    if (isNegative)
        std::transform(m_expression.begin(), m_expression.end(), m_expression.begin(), std::negate());
    const int column = addColumn(isNegative ? slack : miss);
    m_expression[size_t(column)] = 1;
    appendRow(isNegative ? miss : slack);
}

/// Enters a required goal. Answers false if it contradicts the tableau, which then has the same solutions as before.
bool ZelConstraintSolver::enterRequired(const Goal &goal)
{
    express(goal);
    const int column = freeColumn();
    const bool isEquality = goal.relation == Equal;
    if (isEquality && column >= 0) {
        define(column);
        return true;
    }
    int slackColumn = -1;
    if (!isEquality) {
        const int slack = addVariable();
        if (column < 0 && m_expression[0] >= 0) {
            appendRow(slack);
            return true;
        }
        slackColumn = addColumn(slack);
        m_expression[size_t(slackColumn)] = -1;
        if (column >= 0) {
            define(column);
            return true;
        }
    }
    if (m_expression[0] < 0)
        std::transform(m_expression.begin(), m_expression.end(), m_expression.begin(), std::negate());
    const int miss = addVariable();
    appendRow(miss);
    std::copy(m_expression.begin(), m_expression.end(), m_objective.begin());
    minimize();
    const Variable &outcome = m_variables[size_t(miss)];
    if (outcome.row >= 0 && row(outcome.row)[0] > g_tolerance) {
        removeRow(outcome.row);
        // No pivot has moved the slack: it occurs in the row of the miss only, which it could only raise.
        if (slackColumn >= 0)
            removeColumn(slackColumn);
        return false;
    }
    keepOptimum();
    settle(miss);
    return true;
}

void ZelConstraintSolver::solveLevel(std::span<const int> goals)
{
    m_misses.clear();
    for (const int goal : goals)
        enter(m_goals[size_t(goal)]);
    if (m_misses.empty())
        return;
    collectObjective();
    minimize();
    keepOptimum();
    for (const int miss : m_misses)
        settle(miss);
}

/// Makes the sum of the misses of the level the objective.
void ZelConstraintSolver::collectObjective()
{
    std::fill(m_objective.begin(), m_objective.end(), 0);
    for (const int miss : m_misses) {
        const Variable &variable = m_variables[size_t(miss)];
        if (variable.column >= 0)
            m_objective[size_t(variable.column)] += 1;
        if (variable.row < 0)
            continue;
        const double *definition = row(variable.row);
        for (size_t i = 0; i < m_columnVariables.size(); ++i)
            m_objective[i] += definition[i];
    }
}

/// Makes one miss as small as the goals before it allow and takes it out of the tableau.
void ZelConstraintSolver::settle(int miss)
{
    const Variable &variable = m_variables[size_t(miss)]; // read again below, since a pivot may move it to a column
    if (variable.row >= 0) {
        std::copy_n(row(variable.row), m_stride, m_objective.begin());
        minimize();
        keepOptimum();
    }
    if (variable.column >= 0)
        removeColumn(variable.column);
    if (variable.row >= 0)
        removeRow(variable.row);
}

// ---- simplex

void ZelConstraintSolver::minimize()
{
    // The steepest column is the fastest choice, but may go in cycles. The rule of the smallest index (Bland) ends
    // every cycle, so it takes over after many steps.
    const size_t patience = 20 + 2 * (m_rowVariables.size() + m_columnVariables.size());
    for (size_t step = 0; step < 50 * patience; ++step) {
        const int column = enteringColumn(step > patience);
        if (column < 0)
            return;
        const int leaving = leavingRow(column);
        if (leaving < 0)
            return; // misses are never negative, so only rounding noise leads here
        pivot(leaving, column);
    }
}

int ZelConstraintSolver::enteringColumn(bool byIndex) const
{
    int best = -1;
    for (size_t i = 1; i < m_columnVariables.size(); ++i) {
        if (m_columnVariables[i] < 0 || m_objective[i] > -g_negligible)
            continue;
        if (best < 0 || (byIndex ? m_columnVariables[i] < m_columnVariables[size_t(best)]
                                 : m_objective[i] < m_objective[size_t(best)]))
            best = int(i);
    }
    return best;
}

int ZelConstraintSolver::leavingRow(int column)
{
    int best = -1;
    double bestRatio = 0;
    for (size_t i = 0; i < m_rowVariables.size(); ++i) {
        const int variable = m_rowVariables[i];
        if (!m_variables[size_t(variable)].restricted)
            continue;
        const double *cells = row(int(i));
        if (cells[column] > -g_negligible)
            continue;
        const double ratio = std::max(cells[0], 0.0) / -cells[column];
        if (best < 0 || ratio < bestRatio || (ratio == bestRatio && variable < m_rowVariables[size_t(best)])) {
            best = int(i);
            bestRatio = ratio;
        }
    }
    return best;
}

/// Drops the columns whose use would raise the objective again.
void ZelConstraintSolver::keepOptimum()
{
    for (size_t i = 1; i < m_columnVariables.size(); ++i) {
        if (m_columnVariables[i] >= 0 && m_objective[i] > g_negligible)
            removeColumn(int(i));
    }
}
