/* A column in compression: sets its inputs, checks it, and says what governs. */

#include <kestrum/kestrum.h>
#include <stdio.h>

static int complain(kestrum_error *error)
{
    fprintf(stderr, "column: %s\n", kestrum_error_text(error));
    if (kestrum_error_nearest(error)[0] != '\0') {
        fprintf(stderr, "column: %s may be meant\n", kestrum_error_nearest(error));
    }
    kestrum_error_free(error);
    return 2;
}

static int report(const kestrum_result *result)
{
    printf("%s: %.3f, %s (%s)\n", kestrum_result_verdict(result, KESTRUM_BASIS_PROGRAM),
           kestrum_result_ratio(result, KESTRUM_BASIS_PROGRAM),
           kestrum_result_governing(result, KESTRUM_BASIS_PROGRAM),
           kestrum_result_clause(result, KESTRUM_BASIS_PROGRAM));
    for (size_t i = 0; i < kestrum_result_checks(result, KESTRUM_BASIS_PROGRAM); ++i) {
        kestrum_check check;
        if (kestrum_result_check(result, KESTRUM_BASIS_PROGRAM, i, &check, NULL) == KESTRUM_OK) {
            printf("%-20s %.3f  %s\n", check.check, check.ratio, check.clause);
        }
    }
    return kestrum_result_status(result, KESTRUM_BASIS_PROGRAM) == KESTRUM_WITHIN ? 0 : 1;
}

int main(void)
{
    const kestrum_setting inputs[] = {
        {"section", "HEB 200"}, {"steel", "S355"}, {"l", "4.5"}, {"nload[1]", "900"}};
    kestrum_catalogue *catalogue = NULL;
    kestrum_member *column = NULL;
    kestrum_result *result = NULL;
    kestrum_error *error = NULL;
    int code;

    if (kestrum_catalogue_builtin(&catalogue, &error) != KESTRUM_OK ||
        kestrum_member_new(catalogue, &column, &error) != KESTRUM_OK ||
        kestrum_member_set_all(column, inputs, sizeof inputs / sizeof inputs[0], NULL, &error) !=
            KESTRUM_OK ||
        kestrum_member_check(column, KESTRUM_BASIS_BOTH, &result, &error) != KESTRUM_OK) {
        code = complain(error);
    } else {
        code = report(result);
    }
    kestrum_result_free(result);
    kestrum_member_free(column);
    kestrum_catalogue_free(catalogue);
    return code;
}
