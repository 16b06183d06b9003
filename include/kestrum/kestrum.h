/* Kestrum EC3: design of one steel member to EN 1993-1-1, as a library for C.
 *
 * A catalogue holds profile tables and materials, a member its inputs, a result what a check of the
 * member has found. Handles are independent values: any number of them may be used at a time, each
 * by one thread, a catalogue and a result by any number of threads. The library has no state of its
 * own and leaves the caller's floating-point environment (flags, rounding, traps) as it was.
 *
 * Inputs have the names and units that `kestrum fields` lists: lengths in m, loads in kN, kN/m and
 * kNm, section dimensions in mm, strengths in MPa; compression, sagging moments, and loads and
 * deflections downwards are positive.
 *
 * Texts are UTF-8 and end with a zero. Every function that can fail returns a code and, where
 * `error` is not null, stores a description there that kestrum_error_free releases; without a
 * failure it stores null. What is given out through `out` is null after a failure. All *_free
 * functions take null.
 */
#ifndef KESTRUM_KESTRUM_H
#define KESTRUM_KESTRUM_H

#include <stddef.h>

#if defined(__GNUC__)
#define KESTRUM_API __attribute__((visibility("default")))
#else
#define KESTRUM_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef enum kestrum_code {
    KESTRUM_OK = 0,
    KESTRUM_NULL = 1,         /* an argument that must not be null is null */
    KESTRUM_UNKNOWN_NAME = 2, /* no such field, section, row or part of a result */
    KESTRUM_REFUSED = 3,      /* a value that is not allowed; the member is as before */
    KESTRUM_BAD_FILE = 4,     /* a project or folder that cannot be read */
    KESTRUM_NO_MEMORY = 5,
    KESTRUM_INTERNAL = 6      /* a fault of the library */
} kestrum_code;

/* Rules of a result. */
enum {
    KESTRUM_BASIS_PROGRAM = 1,  /* those of Kestrum EC3, with its listed deviations */
    KESTRUM_BASIS_STANDARD = 2, /* EN 1993-1-1 as written */
    KESTRUM_BASIS_BOTH = 3,
    /* With both bases of a member: what each deviation costs; with any basis of a table: KESTRUM_NOTES,
     * the deviations that act. Takes many calculations. */
    KESTRUM_COSTS = 4
};

typedef enum kestrum_status {
    KESTRUM_WITHIN = 0,        /* every ratio is within the limit */
    KESTRUM_ABOVE = 1,         /* one is above it */
    KESTRUM_UNSTABLE = 2,      /* NEd exceeds an elastic critical force */
    KESTRUM_FAILED = 3,        /* the calculation stopped: kestrum_result_failure */
    KESTRUM_NOT_CHECKED = 4,   /* inputs that cannot be calculated, or rules that do not cover them */
    KESTRUM_LOADS_DROPPED = 5, /* the result is one of fewer loads than were given */
    KESTRUM_NOTHING_ACTS = 6,  /* no load */
    KESTRUM_BAD_INPUT = 7      /* of a row of a table: an input is refused */
} kestrum_status;

typedef struct kestrum_error kestrum_error;
typedef struct kestrum_text kestrum_text;
typedef struct kestrum_catalogue kestrum_catalogue;
typedef struct kestrum_member kestrum_member;
typedef struct kestrum_result kestrum_result;
typedef struct kestrum_table kestrum_table;
typedef struct kestrum_envelope kestrum_envelope;
typedef struct kestrum_pool kestrum_pool;
typedef struct kestrum_selection kestrum_selection;

/* "1.3.1" */
KESTRUM_API const char *kestrum_version(void);

/* Errors. Texts last as long as the error; they are empty where there is nothing to say. */
KESTRUM_API const char *kestrum_error_text(const kestrum_error *error);
KESTRUM_API const char *kestrum_error_field(const kestrum_error *error);   /* the name to blame */
KESTRUM_API const char *kestrum_error_nearest(const kestrum_error *error); /* what may be meant */
KESTRUM_API int kestrum_error_line(const kestrum_error *error); /* of a project; 0 for none */
KESTRUM_API void kestrum_error_free(kestrum_error *error);

/* Texts that the caller owns. */
KESTRUM_API const char *kestrum_text_data(const kestrum_text *text);
KESTRUM_API size_t kestrum_text_size(const kestrum_text *text); /* without the zero at its end */
KESTRUM_API void kestrum_text_free(kestrum_text *text);

/* Profile tables, materials and setup: those inside the library, or those of a folder as the
 * program is delivered with. A damaged or missing file of the folder fails. */
KESTRUM_API kestrum_code kestrum_catalogue_builtin(kestrum_catalogue **out, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_catalogue_open(const char *folder, kestrum_catalogue **out,
                                                kestrum_error **error);
/* Names of the sections of a family, as the number or a name such as "IPE", a line each. */
KESTRUM_API kestrum_code kestrum_catalogue_sections(const kestrum_catalogue *catalogue,
                                                    const char *family, kestrum_text **out,
                                                    kestrum_error **error);
KESTRUM_API void kestrum_catalogue_free(kestrum_catalogue *catalogue);

/* A member without loads, with the defaults of a new project. It keeps the catalogue alive. */
KESTRUM_API kestrum_code kestrum_member_new(const kestrum_catalogue *catalogue,
                                            kestrum_member **out, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_member_copy(const kestrum_member *member, kestrum_member **out,
                                             kestrum_error **error);
KESTRUM_API void kestrum_member_free(kestrum_member *member);

/* Sets inputs: "l" to "7.2", "section" to "IPE 400", "steel" to "S355", "qload[1]" to "12.5". What
 * the windows of the program change along with a choice is changed here too. Several inputs that
 * depend on each other are set together, in any order; one that is refused leaves the member as it
 * was. `remarks`, where it is not null, takes what is worth a word though it was set, a line each.
 */
typedef struct kestrum_setting {
    const char *name;
    const char *value;
} kestrum_setting;
KESTRUM_API kestrum_code kestrum_member_set(kestrum_member *member, const char *name,
                                            const char *value, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_member_set_number(kestrum_member *member, const char *name,
                                                   double value, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_member_set_all(kestrum_member *member,
                                                const kestrum_setting *settings, size_t count,
                                                kestrum_text **remarks, kestrum_error **error);

/* An input as a number (truth values 0 and 1, ticks 0 and -1 as files hold them), or as text:
 * numbers as they read back, sections, steels and choices by name. */
KESTRUM_API kestrum_code kestrum_member_number(const kestrum_member *member, const char *name,
                                               double *out, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_member_text(const kestrum_member *member, const char *name,
                                             kestrum_text **out, kestrum_error **error);

/* The bytes of a project file. Reading replaces the whole member, or nothing. */
KESTRUM_API kestrum_code kestrum_member_read_project(kestrum_member *member, const void *bytes,
                                                     size_t size, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_member_project(const kestrum_member *member, kestrum_text **out,
                                                kestrum_error **error);

/* Calculates. A member that cannot be calculated is no error but a result with its status. `basis`
 * is one, both, or KESTRUM_BASIS_BOTH | KESTRUM_COSTS. */
KESTRUM_API kestrum_code kestrum_member_check(const kestrum_member *member, unsigned basis,
                                              kestrum_result **out, kestrum_error **error);
KESTRUM_API void kestrum_result_free(kestrum_result *result);

/* Of one basis. Texts last as long as the result. */
KESTRUM_API kestrum_status kestrum_result_status(const kestrum_result *result, unsigned basis);
/* The largest ratio; NEd/Ncr of an unstable member; NaN where there is none. */
KESTRUM_API double kestrum_result_ratio(const kestrum_result *result, unsigned basis);
/* "within limits, 2 notes on the unsafe side" */
KESTRUM_API const char *kestrum_result_verdict(const kestrum_result *result, unsigned basis);
/* Check and clause of the largest ratio: the formula by the rules of the program, the name of the
 * check by the standard; "My,Ed/My,Rd" or "section_My", "6.2.5". */
KESTRUM_API const char *kestrum_result_governing(const kestrum_result *result, unsigned basis);
KESTRUM_API const char *kestrum_result_clause(const kestrum_result *result, unsigned basis);
/* Why there is no ratio, or what the rules do not cover; empty where there is nothing to say. */
KESTRUM_API const char *kestrum_result_message(const kestrum_result *result, unsigned basis);

/* What stopped the calculation by the rules of the program. */
typedef struct kestrum_failure {
    const char *stage;    /* "buckling control"; empty without a failure */
    const char *cause;    /* "axial force above critical force" */
    const char *quantity; /* "Ncr,z" */
    double value, limit;
    const char *unit;
} kestrum_failure;
KESTRUM_API kestrum_failure kestrum_result_failure(const kestrum_result *result);

/* The checks of one basis that have a ratio. Texts last as long as the result. */
typedef struct kestrum_check {
    const char *check;     /* "section_My", "flexural_z", "ltb", "eq661", "deflection_z" */
    const char *formula;   /* by the rules of the program: "My,Ed/My,Rd"; else empty */
    const char *clause;    /* of EN 1993-1-1 unless it says so */
    const char *load_case; /* by the standard the combination: "6.10 G + Q1"; else empty */
    double place;          /* x/L; NaN for a check of the whole member or of a segment */
    double ratio, limit;
    int point;             /* of the section, from 1; 0 for none */
    int segment, segments; /* between restraints, from 1, and their number; 0 for none */
} kestrum_check;
KESTRUM_API size_t kestrum_result_checks(const kestrum_result *result, unsigned basis);
KESTRUM_API kestrum_code kestrum_result_check(const kestrum_result *result, unsigned basis,
                                              size_t index, kestrum_check *out,
                                              kestrum_error **error);

/* Deviations of the program from the standard, on the unsafe side, that act in its result. */
typedef struct kestrum_note {
    const char *id; /* "D201" */
    const char *text;
    double cost; /* with KESTRUM_COSTS, that of the deviation below; else, and without one, NaN */
} kestrum_note;
KESTRUM_API size_t kestrum_result_notes(const kestrum_result *result);
KESTRUM_API kestrum_code kestrum_result_note(const kestrum_result *result, size_t index,
                                             kestrum_note *out, kestrum_error **error);

/* With KESTRUM_COSTS: deviations that change a ratio of the standard when this one alone is taken
 * by the program's rule, the largest cost first. */
typedef struct kestrum_deviation {
    const char *id;
    const char *text;
    double cost;    /* the standard's largest ratio less that with the program's rule */
    double without; /* the largest ratio with the program's rule; both NaN where there is none */
    int unsafe;     /* some check comes out lower by the program's rule, or is missing */
} kestrum_deviation;
KESTRUM_API size_t kestrum_result_deviations(const kestrum_result *result);
KESTRUM_API kestrum_code kestrum_result_deviation(const kestrum_result *result, size_t index,
                                                  kestrum_deviation *out, kestrum_error **error);

/* Any field of the calculation by its name, inputs and intermediate values: "kyy", "mcr". */
KESTRUM_API kestrum_code kestrum_result_number(const kestrum_result *result, const char *name,
                                               double *out, kestrum_error **error);

/* The whole record as JSON; the result panel as text; pictures as SVG: loads, moment, shear and
 * deflection of an axis ('z' or 'y'), and the section. Of a calculation that stopped only JSON. */
KESTRUM_API kestrum_code kestrum_result_json(const kestrum_result *result, kestrum_text **out,
                                             kestrum_error **error);
KESTRUM_API kestrum_code kestrum_result_panel(const kestrum_result *result, kestrum_text **out,
                                              kestrum_error **error);
KESTRUM_API kestrum_code kestrum_result_diagram_svg(const kestrum_result *result, char axis,
                                                    kestrum_text **out, kestrum_error **error);
KESTRUM_API kestrum_code kestrum_result_section_svg(const kestrum_result *result,
                                                    kestrum_text **out, kestrum_error **error);

/* Many members: a column for each input, a row for each member. Inputs that no column names, and
 * those whose entry is NaN or null, are those of `base`. Either `numbers` or `texts` holds `rows`
 * entries; names serve as in kestrum_member_set_all. A row with a refused input is answered with
 * KESTRUM_BAD_INPUT and the others are calculated; only a name that is none fails. `fields` are the
 * values to keep, as in kestrum_result_number. Runs on `threads` threads, 0 for all cores; the
 * answers do not depend on their number. */
typedef struct kestrum_column {
    const char *name;
    const double *numbers;
    const char *const *texts;
} kestrum_column;
KESTRUM_API kestrum_code kestrum_table_check(const kestrum_member *base,
                                             const kestrum_column *columns, size_t column_count,
                                             size_t rows, unsigned basis, const char *const *fields,
                                             size_t field_count, unsigned threads,
                                             kestrum_table **out, kestrum_error **error);
KESTRUM_API void kestrum_table_free(kestrum_table *table);

/* Arrays of `rows` entries that last as long as the table; null for a basis or field that was not
 * asked for. NaN where there is no value. */
KESTRUM_API size_t kestrum_table_rows(const kestrum_table *table);
KESTRUM_API const int *kestrum_table_statuses(const kestrum_table *table, unsigned basis);
KESTRUM_API const double *kestrum_table_ratios(const kestrum_table *table, unsigned basis);
KESTRUM_API const double *kestrum_table_numbers(const kestrum_table *table, size_t field);

/* Texts of a row, as those of a result; empty beyond the rows. */
typedef enum kestrum_words {
    KESTRUM_VERDICT = 0,
    KESTRUM_GOVERNING = 1,
    KESTRUM_CLAUSE = 2,
    KESTRUM_MESSAGE = 3,
    KESTRUM_NOTES = 4 /* numbers of the deviations, "D201 D233"; with KESTRUM_COSTS */
} kestrum_words;
KESTRUM_API const char *kestrum_table_words(const kestrum_table *table, size_t row, unsigned basis,
                                            kestrum_words which);
/* The column whose input is refused; column_count for none, or where several contradict. */
KESTRUM_API size_t kestrum_table_refused(const kestrum_table *table, size_t row);

/* Members under internal forces that another program has found. Each row of the forces is a
 * station: a member, a case, a place and what acts there. The stations of a case run from 0 to the
 * length of the member, every line is straight between two of them, and two at one place are the
 * sides of a jump; rows may come in any order. N is positive in compression, Vz = dMy/dx, Vy =
 * dMz/dx. Loads and end forces of the members are put aside, and there is neither deflection
 * control nor modal analysis. */
typedef struct kestrum_forces {
    size_t rows;
    const size_t *member;    /* row of the members; null: all of the first one */
    const size_t *load_case; /* any number; null: one case of each member */
    const double *x;         /* m */
    const double *n, *vy, *vz, *my, *mz, *mx; /* kN, kNm; null for 0 */
} kestrum_forces;

/* The worst case of each member. Members are columns as in kestrum_table_check: without columns,
 * one member is `base`. What is wrong with a member or a case is an answer, see the faults; only a
 * name that is none and a member that is none fail. */
KESTRUM_API kestrum_code kestrum_envelope_check(const kestrum_member *base,
                                                const kestrum_column *columns, size_t column_count,
                                                size_t members, const kestrum_forces *forces,
                                                unsigned basis, unsigned threads,
                                                kestrum_envelope **out, kestrum_error **error);
KESTRUM_API void kestrum_envelope_free(kestrum_envelope *envelope);
KESTRUM_API size_t kestrum_envelope_members(const kestrum_envelope *envelope);

/* A case without a ratio is worse than every ratio; of equal ones the first row counts. Texts last
 * as long as the envelope. */
typedef struct kestrum_worst {
    kestrum_status status;
    double ratio; /* NEd/Ncr of an unstable member; NaN where there is none */
    double x;     /* m; NaN for a check of the whole member */
    size_t row;   /* of the forces, the first of its case; their number for none */
    size_t cases, above, failed; /* number of cases, of those above the limit, without a ratio */
    const char *verdict, *governing, *clause, *message;
    const char *notes; /* separated by "; " */
} kestrum_worst;
KESTRUM_API kestrum_code kestrum_envelope_worst(const kestrum_envelope *envelope, size_t member,
                                                unsigned basis, kestrum_worst *out,
                                                kestrum_error **error);

/* Members that cannot be calculated, then cases whose stations are none; the first thousand. */
typedef struct kestrum_fault {
    size_t member;
    size_t column; /* the input that is refused; column_count for none */
    size_t row;    /* of the forces; their number for none */
    const char *text;
} kestrum_fault;
KESTRUM_API size_t kestrum_envelope_faults(const kestrum_envelope *envelope);
KESTRUM_API kestrum_code kestrum_envelope_fault(const kestrum_envelope *envelope, size_t index,
                                                kestrum_fault *out, kestrum_error **error);

/* Sections to choose from: families by number or name, series ("UB"), single sections ("IPE 300",
 * "CHS 114.3x5"), "all"; for families of plates the sizes of each dimension, "p21.isth=300:900:50"
 * (from, to, step), "p21.istb1=200,250", "p21.isttw=plates", or "p21.isttw" for that of the member.
 * Prices are a CSV table under the names section, price/kg or price/m, and steel where they differ.
 * A refused word leaves the pool as it was; ranges are checked when the pool is used. */
KESTRUM_API kestrum_code kestrum_pool_new(const kestrum_catalogue *catalogue, kestrum_pool **out,
                                          kestrum_error **error);
KESTRUM_API void kestrum_pool_free(kestrum_pool *pool);
KESTRUM_API kestrum_code kestrum_pool_add(kestrum_pool *pool, const char *word,
                                          kestrum_error **error);
KESTRUM_API kestrum_code kestrum_pool_range(kestrum_pool *pool, const char *range,
                                            kestrum_error **error);
KESTRUM_API kestrum_code kestrum_pool_prices(kestrum_pool *pool, const char *table,
                                             kestrum_error **error);

typedef enum kestrum_objective {
    KESTRUM_BY_MASS = 0,
    KESTRUM_BY_DEPTH = 1,
    KESTRUM_BY_PRICE = 2,
    KESTRUM_BY_SURFACE = 3 /* to be painted */
} kestrum_objective;

typedef struct kestrum_wishes {
    unsigned by;          /* kestrum_objective; the smallest is chosen */
    unsigned basis;       /* within limits in each of these */
    double max_ir;        /* 0 for the limit of the member alone */
    double max_h, max_b;  /* mm, over all; 0 for none */
    size_t top;           /* how many are wanted; 0 for one */
    const char *const *steels; /* grades to choose from; none for that of the member */
    size_t steel_count;
} kestrum_wishes;

/* The lightest section of the pool that passes, for each member or, where `group` is not null, one
 * for all members of the same number. Members are columns as in kestrum_table_check; they are under
 * `forces`, or with null under their own loads. Each section is rated, none is inferred. A member
 * that cannot be calculated leaves its group without a section and is one of the faults. */
KESTRUM_API kestrum_code kestrum_select(const kestrum_member *base, const kestrum_column *columns,
                                        size_t column_count, size_t members,
                                        const kestrum_forces *forces, const size_t *group,
                                        const kestrum_pool *pool, const kestrum_wishes *wishes,
                                        unsigned threads, kestrum_selection **out,
                                        kestrum_error **error);
KESTRUM_API void kestrum_selection_free(kestrum_selection *selection);
KESTRUM_API size_t kestrum_selection_members(const kestrum_selection *selection);
/* How many sections were found for a member, at most `top`, and why there is none. */
KESTRUM_API size_t kestrum_selection_found(const kestrum_selection *selection, size_t member);
KESTRUM_API const char *kestrum_selection_message(const kestrum_selection *selection,
                                                  size_t member);

/* A section with its figures. Texts last as long as the selection. */
typedef struct kestrum_choice {
    const char *section, *steel;
    const char *why;            /* "ratio 0.931 (My,Ed/My,Rd, 6.2.5)" */
    double mass, h, b, surface; /* kg/m, mm over all, m2/m */
    double price;               /* for a metre; NaN for none */
} kestrum_choice;
/* By its rank from 0, and what it gives in a basis that was asked for. */
KESTRUM_API kestrum_code kestrum_selection_choice(const kestrum_selection *selection,
                                                  size_t member, size_t rank, kestrum_choice *out,
                                                  kestrum_error **error);
KESTRUM_API kestrum_code kestrum_selection_worst(const kestrum_selection *selection, size_t member,
                                                 size_t rank, unsigned basis, kestrum_worst *out,
                                                 kestrum_error **error);
/* The next lighter section, which fails; KESTRUM_UNKNOWN_NAME where there is none. */
KESTRUM_API kestrum_code kestrum_selection_lighter(const kestrum_selection *selection,
                                                   size_t member, kestrum_choice *out,
                                                   kestrum_error **error);
KESTRUM_API size_t kestrum_selection_faults(const kestrum_selection *selection);
KESTRUM_API kestrum_code kestrum_selection_fault(const kestrum_selection *selection, size_t index,
                                                 kestrum_fault *out, kestrum_error **error);

#ifdef __cplusplus
}
#endif

#endif
