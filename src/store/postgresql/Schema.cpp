// The SQL of a store, and what a schema must be to be one.
#include "store/postgresql/Schema.h"

#include "records/Layout.h"

#include <algorithm>
#include <string_view>

namespace vorandine::store::postgresql {
namespace {

constexpr std::string_view Mark = "vorandine ";
constexpr std::string_view Format = "1";
constexpr const char* Sessions = "SESSIONS";

// Changes a record and keeps the history; the words between @ are put in. Most changes find what
// they expect, and look for the record once. What a statement waits for, the next one sees as it is
// then. Who owns the store may tell the moment and write without history: he could write the tables
// himself.
constexpr std::string_view Writer = R"sql(
CREATE FUNCTION @NAME@ (la_cle bytea, la_fiche bytea, compare boolean, attendue bytea,
                        qui bytea, chargement boolean, quand bytea, sans_histoire boolean,
                        reprise boolean, OUT fait boolean, OUT avant bytea, OUT moment bytea)
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $corps$
DECLARE
    debut CONSTANT bytea := '\x@PREFIX@ff'::bytea || la_cle || '\xff'::bytea;
    derniere bytea;
    poste CONSTANT bytea := convert_to(session_user, 'UTF8');
BEGIN
    IF (sans_histoire OR quand IS NOT NULL) AND session_user <> current_user THEN
        RAISE insufficient_privilege;
    END IF;
    PERFORM pg_advisory_xact_lock_shared(@LOCK@);
    LOOP
        IF compare AND attendue IS NOT NULL AND la_fiche IS NOT NULL AND NOT reprise THEN
            UPDATE @FILE@ SET fiche = la_fiche WHERE cle = la_cle AND fiche = attendue;
            IF FOUND THEN
                fait := true;
                avant := attendue;
                EXIT;
            END IF;
        ELSIF (compare OR chargement) AND la_fiche IS NOT NULL AND NOT reprise THEN
            INSERT INTO @FILE@ VALUES (la_cle, la_fiche) ON CONFLICT (cle) DO NOTHING;
            fait := FOUND;
            EXIT WHEN FOUND;
        END IF;
        SELECT fiche INTO avant FROM @FILE@ WHERE cle = la_cle FOR UPDATE;
        IF reprise AND avant IS NOT DISTINCT FROM la_fiche THEN
            SELECT substr(cle, length(debut) + 1) INTO moment FROM @HISTORY@
                WHERE cle >= debut AND cle < debut || '\xff'::bytea ORDER BY cle DESC LIMIT 1;
            fait := true;
            RETURN;
        END IF;
        fait := NOT compare OR avant IS NOT DISTINCT FROM attendue;
        IF NOT fait OR la_fiche IS NULL AND avant IS NULL THEN
            RETURN;
        ELSIF la_fiche IS NULL THEN
            DELETE FROM @FILE@ WHERE cle = la_cle;
            EXIT;
        ELSIF avant IS NOT NULL THEN
            UPDATE @FILE@ SET fiche = la_fiche WHERE cle = la_cle;
            EXIT;
        END IF;
        INSERT INTO @FILE@ VALUES (la_cle, la_fiche) ON CONFLICT (cle) DO NOTHING;
        EXIT WHEN FOUND;
    END LOOP;
    IF NOT chargement THEN
        PERFORM pg_notify(@SCHEMA@, '');
    END IF;
    IF sans_histoire THEN
        RETURN;
    END IF;
    SELECT cle INTO derniere FROM @HISTORY@
        WHERE cle >= debut AND cle < debut || '\xff'::bytea ORDER BY cle DESC LIMIT 1;
    IF chargement AND (avant IS NULL AND derniere IS NULL OR avant IS NOT DISTINCT FROM la_fiche)
    THEN
        RETURN;
    END IF;
    moment := coalesce(quand, convert_to(to_char(clock_timestamp() AT TIME ZONE 'UTC',
                                                 @MOMENT@), 'UTF8'));
    IF substr(derniere, length(debut) + 1) >= moment THEN
        moment := convert_to(to_char(
            (convert_from(substr(derniere, length(debut) + 1), 'UTF8')::timestamptz +
             interval '1 microsecond') AT TIME ZONE 'UTC', @MOMENT@), 'UTF8');
    END IF;
    IF session_user <> current_user
            AND NOT has_function_privilege(session_user, @ONBEHALF@, 'EXECUTE') THEN
        qui := poste;
    ELSIF position(' @ '::bytea IN qui) > 0 THEN
        RAISE invalid_parameter_value;
    ELSIF qui <> poste THEN
        qui := qui || ' @ '::bytea || poste;
    END IF;
    INSERT INTO @HISTORY@ VALUES (debut || moment, qui || coalesce('\xff'::bytea || avant, ''));
END $corps$;
)sql";

// A transaction of several statements leaves a number, by which its session finds out later whether
// it took effect. Those of yesterday are asked for by nobody.
constexpr std::string_view Session = R"sql(
CREATE TABLE @SESSIONS@ (session bytea, role name, numero bigint NOT NULL,
                         vue timestamptz NOT NULL, PRIMARY KEY (session, role));
CREATE FUNCTION @NAME@ (la_session bytea, le_numero bigint) RETURNS void
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $corps$
BEGIN
    UPDATE @SESSIONS@ SET numero = le_numero, vue = now()
        WHERE session = la_session AND role = session_user;
    IF NOT FOUND THEN
        DELETE FROM @SESSIONS@ WHERE vue < now() - interval '1 day';
        INSERT INTO @SESSIONS@ VALUES (la_session, session_user, le_numero, now());
    END IF;
END $corps$;
CREATE FUNCTION @ONBEHALF@ () RETURNS void LANGUAGE sql AS '';
)sql";

constexpr const char* OnBehalf = "au_nom_de";

std::string qualified(const Address& address, const std::string& name) {
    return quotedName(address.schema) + '.' + quotedName(name);
}

std::string filled(std::string_view text,
                   const std::vector<std::pair<std::string_view, std::string>>& words) {
    std::string all(text);
    for (const auto& [mark, word] : words)
        for (std::size_t at = 0; (at = all.find(mark, at)) != std::string::npos; at += word.size())
            all.replace(at, mark.size(), word);
    return all;
}

std::string hexadecimal(const std::string& text) {
    constexpr const char* Digits = "0123456789abcdef";
    std::string all;
    for (const unsigned char c : text) {
        all += Digits[c / 16];
        all += Digits[c % 16];
    }
    return all;
}

// Of the schema: stores of other schemas do not wait.
std::string lockKey(const Address& address) {
    return "hashtextextended(" + quotedText(std::string(Mark) + address.schema) + ", 0)";
}

std::vector<std::string> statements(const Address& address) {
    const std::string schema = quotedName(address.schema);
    const std::string onBehalf = qualified(address, OnBehalf);
    std::vector<std::string> all{"CREATE SCHEMA IF NOT EXISTS " + schema,
                                 "COMMENT ON SCHEMA " + schema + " IS " +
                                     quotedText(std::string(Mark) + std::string(Format))};
    const std::string session = filled(Session, {{"@SESSIONS@", sessionsName(address)},
                                                 {"@NAME@", sessionName(address)},
                                                 {"@ONBEHALF@", onBehalf}});
    all.push_back(session);
    for (const std::string& file : tables()) {
        // Room in each page for the next version of its records. The history's are never replaced.
        const std::string room = file == HistoryFile ? "" : " WITH (fillfactor = 90)";
        all.push_back("CREATE TABLE " + tableName(address, file) +
                      " (cle bytea PRIMARY KEY, fiche bytea COMPRESSION lz4 NOT NULL)" + room);
        all.push_back(filled(Writer, {{"@NAME@", writerName(address, file)},
                                      {"@FILE@", tableName(address, file)},
                                      {"@HISTORY@", tableName(address, std::string(HistoryFile))},
                                      {"@PREFIX@", hexadecimal(file)},
                                      {"@LOCK@", lockKey(address)},
                                      {"@SCHEMA@", quotedText(address.schema)},
                                      {"@MOMENT@", R"('YYYY-MM-DD"T"HH24:MI:SS.US"Z"')"},
                                      {"@ONBEHALF@", quotedText(onBehalf + "()")}}));
    }
    all.push_back("REVOKE ALL ON ALL FUNCTIONS IN SCHEMA " + schema + " FROM PUBLIC");
    return all;
}

struct State {
    bool exists = false;
    std::string comment;
    std::vector<std::string> tables; // and all else that can be selected from
};

State stateOf(Connection& connection) {
    Statement statement(
        "SELECT coalesce(obj_description(s.oid, 'pg_namespace'), '')::text, c.relname::text "
        "FROM pg_namespace s LEFT JOIN pg_class c ON c.relnamespace = s.oid AND c.relkind <> 'i' "
        "WHERE s.nspname = $1::text");
    const Rows rows = connection.run({{statement, {connection.address().schema}}}).front();
    State state;
    for (int row = 0; row < rows.count(); ++row) {
        state.exists = true;
        state.comment = rows.bytes(row, 0);
        if (!rows.null(row, 1))
            state.tables.emplace_back(rows.bytes(row, 1));
    }
    std::sort(state.tables.begin(), state.tables.end());
    return state;
}

void create(Connection& connection) {
    const Address& address = connection.address();
    Statement begin("BEGIN");
    Statement alone(writeAlone(address));
    Statement commit("COMMIT");
    Statement rollBack("ROLLBACK");
    connection.run({{begin, {}}, {alone, {}}});
    try {
        // Another program may have made the store since it was found missing.
        if (stateOf(connection).tables.empty())
            connection.script(statements(address));
        connection.run({{commit, {}}});
    } catch (const Unreachable&) {
        throw;
    } catch (...) {
        connection.run({{rollBack, {}}});
        throw;
    }
}

void require(const Connection& connection, const State& state) {
    if (!state.exists)
        connection.fail(errors::StoreMissing,
                        "n'existe pas : la base de données n'a pas de schéma de ce nom. Vérifiez "
                        "l'adresse, ou créez-la.");
    if (state.comment.empty() && state.tables.empty())
        connection.fail(errors::NotADatabase, "n'en est pas une : le schéma est vide. Vérifiez "
                                              "l'adresse, ou créez la base à cet endroit.");
    if (!state.comment.starts_with(Mark))
        connection.fail(errors::OtherProgram,
                        "appartient à un autre programme. Choisissez un autre schéma.");
    const std::string format = state.comment.substr(Mark.size());
    if (format != Format)
        connection.fail(errors::OtherVersion,
                        "est au format " + format + ", ce programme lit le format " +
                            std::string(Format) +
                            ". Utilisez la version du programme qui l'a écrite.");
    std::vector<std::string> expected = tables();
    expected.emplace_back(Sessions);
    std::sort(expected.begin(), expected.end());
    if (!std::includes(state.tables.begin(), state.tables.end(), expected.begin(), expected.end()))
        connection.fail(errors::Damaged, "est incomplète : une de ses tables manque. Remplacez-la "
                                         "par une copie de sauvegarde.");
    if (state.tables != expected)
        connection.fail(errors::OtherProgram,
                        "contient des tables d'un autre programme. Choisissez "
                        "un autre schéma.");
}

} // namespace

std::vector<std::string> tables() {
    std::vector<std::string> names;
    for (const records::FileLayout& known : records::files())
        names.emplace_back(known.name);
    names.emplace_back(HistoryFile);
    return names;
}

std::string tableName(const Address& address, const std::string& file) {
    return qualified(address, file);
}

std::string writerName(const Address& address, const std::string& file) {
    return qualified(address, "ecrire_" + file);
}

std::string sessionName(const Address& address) {
    return qualified(address, "noter_session");
}

std::string sessionsName(const Address& address) {
    return qualified(address, Sessions);
}

std::string writeAlone(const Address& address) {
    return "SELECT pg_advisory_xact_lock(" + lockKey(address) + ')';
}

void openSchema(Connection& connection, OpenMode mode) {
    State state = stateOf(connection);
    if (mode == OpenMode::Create && state.tables.empty() && state.comment.empty()) {
        create(connection);
        state = stateOf(connection);
    }
    require(connection, state);
}

} // namespace vorandine::store::postgresql
