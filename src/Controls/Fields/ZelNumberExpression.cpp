// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberExpression.h"

#include "Controls/Fields/ZelUnits.h"
#include "Resources/ZelLocalizedString.h"

#include <QHash>
#include <cmath>
#include <limits>
#include <muParser.h>
#include <numbers>
#include <utility>

namespace {

constexpr char g_argumentSeparator = ';';

/// What muParser reads, and where each of its characters comes from.
struct Source
{
    std::string code;
    QList<qsizetype> places;        ///< by character of the code: the place in the text
    QHash<QString, double> factors; ///< what units are worth, by the names that they have in the code
    bool isRelative = false;
    bool usesPlace = false;

    void append(const QString &part, qsizetype place)
    {
        code += part.toStdString();
        while (places.size() < qsizetype(code.size()))
            places.append(place);
    }
};

QString atPlace(const QString &message, qsizetype place)
{
    return ZelLocalizedString("%1 (character %2).").arg(message).arg(place + 1);
}

bool isOneOf(QChar c, const char *characters)
{
    return !c.isNull() && QLatin1String(characters).contains(c);
}

/// What stands between two parentheses, or in the whole text.
struct Level
{
    qsizetype place = 0;     ///< of the opening parenthesis
    QString function;        ///< null if there is none
    QChar lastOperator;      ///< before the last value
    int unitsInProduct = 0;  ///< of the product that is being read
    int unitsInProducts = 0; ///< the most of the products before it
    bool isOfAngles = false; ///< whether this is an argument of a function of angles

    int units() const { return std::max(unitsInProduct, unitsInProducts); }
    void beginProduct()
    {
        unitsInProducts = units();
        unitsInProduct = 0;
    }
};

/// Translates a text into what muParser reads: decimal points, no separators of groups, and units as factors. What
/// muParser would make a guess at is refused: values without an operator in between, and products of units.
class Scanner
{
public:
    Scanner(const QString &text, const QString &unit, const QLocale &locale)
        : m_text(text)
        , m_unit(unit.trimmed())
        , m_unitKind(ZelUnits::kindOf(m_unit))
        , m_point(locale.decimalPoint())
        , m_separator(locale.groupSeparator())
        , m_zero(locale.zeroDigit().size() == 1 ? locale.zeroDigit().at(0) : QLatin1Char('0'))
    {
    }

    /// Whether all could be translated; otherwise the error is told.
    bool scan(Source *source, QString *error)
    {
        m_source = source;
        takeRelativeOperator();
        while (m_error.isEmpty() && m_place < m_text.size())
            takeNext();
        if (m_error.isEmpty() && m_last == Last::None)
            fail(ZelLocalizedString("The calculation is not complete"));
        if (m_error.isEmpty() && m_levels.size() > 1)
            m_error = atPlace(ZelLocalizedString("A parenthesis is not closed"), m_levels.last().place);
        closeRelativeOperator();
        *error = m_error;
        return m_error.isEmpty();
    }

private:
    /// What stands before the place.
    enum class Last { None, Number, Name, Unit, Parenthesis };

    QChar at(qsizetype place) const { return place < m_text.size() ? m_text.at(place) : QChar(); }
    bool isDigit(qsizetype place) const { return digit(place) >= 0; }
    int digit(qsizetype place) const
    {
        const int distance = at(place).unicode() - m_zero.unicode();
        if (distance >= 0 && distance <= 9)
            return distance;
        return at(place) >= QLatin1Char('0') && at(place) <= QLatin1Char('9') ? at(place).unicode() - '0' : -1;
    }
    bool has(const QString &part, qsizetype place) const
    {
        return !part.isEmpty() && QStringView(m_text).mid(place).startsWith(part);
    }
    void append(const QString &part) { m_source->append(part, m_place); }

    void takeRelativeOperator()
    {
        while (at(m_place).isSpace())
            ++m_place;
        m_operator = operatorFor(at(m_place));
        if (!isOneOf(m_operator, "+-*/") || at(m_place + 1) != QLatin1Char('='))
            return m_operator = {}, void();
        m_source->isRelative = true;
        qsizetype end = m_text.size();
        while (end > 0 && at(end - 1).isSpace())
            --end;
        // A part of a field's own parts is as many of them more, as it is of any other unit.
        m_isPartOfOwn = at(end - 1) == QLatin1Char('%') && isOneOf(m_operator, "+-");
        if (m_isPartOfOwn)
            m_text.truncate(end - 1);
        append(QStringLiteral("x%1(").arg(m_operator));
        m_place += 2;
    }

    void closeRelativeOperator()
    {
        if (m_operator.isNull())
            return;
        append(m_isPartOfOwn ? QStringLiteral(")*x/100") : QStringLiteral(")"));
    }

    void takeNext()
    {
        const QChar c = at(m_place);
        if (c.isSpace()) {
            ++m_place;
        } else if (isDigit(m_place) || (has(m_point, m_place) && isDigit(m_place + m_point.size()))) {
            takeNumber();
        } else if (c.isLetter()) {
            takeName();
        } else if (!operatorFor(c).isNull()) {
            takeOperator(operatorFor(c));
        } else {
            takeUnit(QString(c));
        }
    }

    void takeNumber()
    {
        if (m_last != Last::None)
            return fail(m_last == Last::Number ? ZelLocalizedString("An operator is missing between two numbers")
                                               : ZelLocalizedString("An operator is missing"));
        bool hasPoint = false;
        const qsizetype begin = m_place;
        QString number;
        for (;;) {
            if (isDigit(m_place)) {
                number += QString::number(digit(m_place++));
            } else if (!hasPoint && has(m_point, m_place)) {
                hasPoint = true;
                number += QLatin1Char('.');
                m_place += m_point.size();
            } else if (!hasPoint && isGroupAt(m_place)) {
                m_place += m_separator.size();
            } else {
                break;
            }
        }
        takeExponent(&number);
        m_source->append(number, begin);
        m_last = Last::Number;
    }

    void takeExponent(QString *number)
    {
        if (at(m_place).toLower() != QLatin1Char('e'))
            return;
        const bool hasSign = at(m_place + 1) == QLatin1Char('-') || at(m_place + 1) == QLatin1Char('+');
        if (!isDigit(m_place + 1 + hasSign))
            return;
        *number += m_text.mid(m_place, 1 + hasSign);
        m_place += 1 + hasSign;
        while (isDigit(m_place))
            *number += QString::number(digit(m_place++));
    }

    /// Whether a separator of groups stands here. In the parentheses of a function a comma separates arguments.
    bool isGroupAt(qsizetype place) const
    {
        const bool isArgument = !m_levels.last().function.isNull();
        if (!has(m_separator, place) || (isArgument && m_separator == QLatin1String(",")))
            return false;
        const qsizetype next = place + m_separator.size();
        return isDigit(next) && isDigit(next + 1) && isDigit(next + 2) && !isDigit(next + 3);
    }

    void takeName()
    {
        QString name;
        for (qsizetype place = m_place; at(place).isLetter(); ++place)
            name += at(place);
        const bool isVariable = QStringList{"x", "i", "n"}.contains(name);
        const bool isConstant = name == QLatin1String("pi");
        static const QStringList functions = {"sqrt",  "abs",  "min", "max", "round",
                                              "floor", "ceil", "sin", "cos", "tan"};
        const bool isFunction = functions.contains(name) && at(afterBlanks(m_place + name.size())) == QLatin1Char('(');
        if (!isVariable && !isConstant && !isFunction)
            return m_last != Last::None ? takeUnit(name) : fail(ZelLocalizedString("“%1” is not known").arg(name));
        if (m_last == Last::Number && !isFunction)
            append(QStringLiteral("*")); // as in 2x
        else if (m_last != Last::None)
            return fail(ZelLocalizedString("An operator is missing"));
        append(name);
        m_place += name.size();
        m_source->isRelative = m_source->isRelative || isVariable;
        m_source->usesPlace = m_source->usesPlace || (isVariable && name != QLatin1String("x"));
        m_last = isFunction ? Last::None : Last::Name;
        m_function = isFunction ? name : QString();
    }

    qsizetype afterBlanks(qsizetype place) const
    {
        while (at(place).isSpace())
            ++place;
        return place;
    }

    void takeUnit(const QString &symbol)
    {
        if (m_last == Last::None)
            return fail(ZelLocalizedString("“%1” is not known").arg(symbol));
        if (m_last == Last::Unit)
            return fail(ZelLocalizedString("“%1” is not expected").arg(symbol));
        if (symbol == QLatin1String("%") && symbol != m_unit)
            return takePart();
        const std::optional<double> factor = factorOf(symbol);
        if (!factor)
            return fail(ZelUnits::kindOf(symbol).isNull()
                            ? ZelLocalizedString("“%1” is not known").arg(symbol)
                            : ZelLocalizedString("“%1” cannot be converted here").arg(symbol));
        // Half an inch is 1/2 in, but 10 in/2 in are 5.
        Level &level = m_levels.last();
        const bool divides = level.lastOperator == QLatin1Char('/') && level.unitsInProduct > 0;
        level.unitsInProduct += divides ? -1 : 1;
        if (level.unitsInProduct > 1)
            return failForUnits();
        if (*factor != 1)
            appendFactor(*factor, divides);
        m_place += symbol.size();
        m_last = Last::Unit;
    }

    /// What is multiplied or divided, and what has no unit, is counted in hundredths; any other part is one of the own
    /// value.
    void takePart()
    {
        const QChar next = operatorFor(at(afterBlanks(m_place + 1)));
        const QChar last = m_levels.last().lastOperator;
        if (m_unit.isEmpty() || isOneOf(m_operator, "*/") || isOneOf(last, "*/^") || isOneOf(next, "*/^")) {
            appendFactor(0.01, last == QLatin1Char('/'));
        } else {
            append(QStringLiteral("*x/100"));
            m_source->isRelative = true;
        }
        ++m_place;
        m_last = Last::Unit;
    }

    void appendFactor(double factor, bool divides)
    {
        const QString name = QStringLiteral("unit%1").arg(m_source->factors.size());
        m_source->factors.insert(name, factor);
        append(QLatin1Char(divides ? '/' : '*') + name);
    }

    std::optional<double> factorOf(const QString &symbol) const
    {
        if (symbol == m_unit)
            return 1;
        if (const std::optional<double> factor = ZelUnits::ratio(symbol, m_unit))
            return factor;
        const bool isAngle = m_levels.last().isOfAngles && m_unitKind != QLatin1String("angle");
        return isAngle ? ZelUnits::ratio(symbol, QStringLiteral("rad")) : std::nullopt;
    }

    static QChar operatorFor(QChar c)
    {
        switch (c.unicode()) {
        case u'−':
            return QLatin1Char('-');
        case u'×':
        case u'·':
            return QLatin1Char('*');
        case u'÷':
            return QLatin1Char('/');
        case u',':
            return QLatin1Char(g_argumentSeparator);
        default:
            return QStringLiteral("+-*/^();").contains(c) ? c : QChar();
        }
    }

    void takeOperator(QChar c)
    {
        Level &level = m_levels.last();
        // muParser would take the last one of several calculations.
        const bool isSeparator = c == QLatin1Char(g_argumentSeparator);
        const bool isClosing = c == QLatin1Char(')');
        if ((isSeparator && level.function.isNull()) || (isClosing && m_levels.size() == 1))
            return fail(ZelLocalizedString("“%1” is not expected").arg(at(m_place)));
        if (c == QLatin1Char('('))
            return openParenthesis();
        if (isClosing)
            return closeParenthesis();
        if (c == QLatin1Char('^') && level.unitsInProduct > 0)
            return failForUnits();
        const bool isSum = isOneOf(c, "+-") && m_last != Last::None;
        if (isSeparator || isSum)
            level.beginProduct();
        if (isSeparator || isSum || isOneOf(c, "*/^"))
            level.lastOperator = c;
        append(c);
        ++m_place;
        m_last = Last::None;
    }

    void openParenthesis()
    {
        if (m_last != Last::None)
            return fail(ZelLocalizedString("An operator is missing"));
        Level level;
        level.place = m_place;
        level.function = std::exchange(m_function, {});
        static const QStringList functionsOfAngles = {"sin", "cos", "tan"};
        level.isOfAngles = m_levels.last().isOfAngles || functionsOfAngles.contains(level.function);
        m_levels.append(level);
        append(QStringLiteral("("));
        ++m_place;
    }

    void closeParenthesis()
    {
        const Level inner = m_levels.takeLast();
        Level &level = m_levels.last();
        const int units = inner.isOfAngles ? 0 : inner.units();
        level.unitsInProduct += level.lastOperator == QLatin1Char('/') ? -units : units;
        if (level.unitsInProduct > 1)
            return failForUnits();
        append(QStringLiteral(")"));
        ++m_place;
        m_last = Last::Parenthesis;
    }

    void failForUnits() { fail(ZelLocalizedString("Only one factor of a product can have a unit")); }
    void fail(const QString &message) { m_error = atPlace(message, m_place); }

    QString m_text;
    QString m_unit;
    QString m_unitKind;
    QString m_point;
    QString m_separator;
    QChar m_zero;
    Source *m_source = nullptr;
    qsizetype m_place = 0;
    QList<Level> m_levels{Level()}; ///< the whole text, and each open parenthesis
    QString m_function;             ///< that was just read
    Last m_last = Last::None;
    QChar m_operator; ///< of a relative entry
    bool m_isPartOfOwn = false;
    QString m_error;
};

QString message(const mu::ParserError &error, const Source &source)
{
    const qsizetype place = source.places.value(error.GetPos(), source.places.isEmpty() ? 0 : source.places.last());
    switch (error.GetCode()) {
    case mu::ecTOO_MANY_PARAMS:
    case mu::ecTOO_FEW_PARAMS:
        return atPlace(ZelLocalizedString("This is not the number of arguments of the function"), place);
    default:
        return atPlace(ZelLocalizedString("“%1” is not expected").arg(QString::fromStdString(error.GetToken())), place);
    }
}

double smallest(const double *values, int count)
{
    return *std::min_element(values, values + count);
}

double largest(const double *values, int count)
{
    return *std::max_element(values, values + count);
}

} // namespace

class ZelNumberExpression::Calculation
{
public:
    Calculation(const Source &source, const QString &unit)
        : m_radians(ZelUnits::ratio(unit, QStringLiteral("rad")).value_or(1))
        , m_isRelative(source.isRelative)
        , m_usesPlace(source.usesPlace)
    {
        defineFunctions();
        m_parser.DefineConst("pi", std::numbers::pi);
        for (auto factor = source.factors.begin(); factor != source.factors.end(); ++factor)
            m_parser.DefineConst(factor.key().toStdString(), factor.value());
        m_parser.DefineVar("x", &m_x);
        m_parser.DefineVar("i", &m_i);
        m_parser.DefineVar("n", &m_n);
        m_parser.SetArgSep(g_argumentSeparator);
        m_parser.SetExpr(source.code);
        m_parser.Eval(); // what is wrong with it is found when it is calculated for the first time
    }
    Q_DISABLE_COPY_MOVE(Calculation)
    ~Calculation() = default;

    bool isRelative() const { return m_isRelative; }
    bool usesPlace() const { return m_usesPlace; }
    double value(double x, double i, double n)
    {
        m_x = x;
        m_i = i;
        m_n = n;
        return m_parser.Eval();
    }

private:
    using Function = double (*)(double);

    void defineFunctions()
    {
        m_parser.ClearFun();
        m_parser.ClearConst();
        const std::pair<const char *, Function> functions[] = {
            {"sqrt", std::sqrt}, {"abs", std::abs}, {"round", std::round}, {"floor", std::floor}, {"ceil", std::ceil}};
        for (const auto &[name, function] : functions)
            m_parser.DefineFun(name, function);
        m_parser.DefineFun("min", smallest);
        m_parser.DefineFun("max", largest);
        m_parser.DefineFunUserData("sin", ofAngle<&std::sin>, &m_radians);
        m_parser.DefineFunUserData("cos", ofAngle<&std::cos>, &m_radians);
        m_parser.DefineFunUserData("tan", ofAngle<&std::tan>, &m_radians);
    }

    template<Function function> static double ofAngle(void *radians, double angle)
    {
        return function(angle * *static_cast<const double *>(radians));
    }

    double m_radians; ///< in a unit of the field's angles
    double m_x = 1;   // no division by it fails while the text is read
    double m_i = 1;
    double m_n = 1;
    bool m_isRelative;
    bool m_usesPlace;
    mu::Parser m_parser;
};

ZelNumberExpression ZelNumberExpression::fromText(const QString &text, const QString &unit, const QLocale &locale,
                                                  QString *error)
{
    QString reason;
    Source source;
    ZelNumberExpression expression;
    if (Scanner(text, unit, locale).scan(&source, &reason)) {
        try {
            expression.m_calculation = std::make_shared<Calculation>(source, unit.trimmed());
        } catch (const mu::ParserError &parserError) {
            reason = message(parserError, source);
        }
    }
    if (error)
        *error = reason;
    return expression;
}

bool ZelNumberExpression::isRelative() const
{
    return m_calculation && m_calculation->isRelative();
}

bool ZelNumberExpression::usesPlace() const
{
    return m_calculation && m_calculation->usesPlace();
}

double ZelNumberExpression::value(double x, qsizetype i, qsizetype n) const
{
    return m_calculation ? m_calculation->value(x, double(i), double(n)) : std::numeric_limits<double>::quiet_NaN();
}
