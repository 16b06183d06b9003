"""Two worker processes of Dask, one of which is killed in the middle: the answers have the bytes of one process."""

import os
import signal
import threading
import time

import pandas
import pytest

import kestrum

distributed = pytest.importorskip("distributed", reason="python3-distributed is not installed")
frames = pytest.importorskip("dask.dataframe", reason="python3-dask is not installed")


@pytest.fixture
def client(tmp_path):
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None,
                                  local_directory=str(tmp_path)) as cluster:
        with distributed.Client(cluster) as connected:
            yield connected


def kill_one(client, done, killed):
    """As soon as both workers have parts of the work."""
    while not done.is_set():
        working = client.processing()
        if len(working) == 2 and all(working.values()):
            pid = next(iter(client.run(os.getpid, workers=[next(iter(working))]).values()))
            os.kill(pid, signal.SIGKILL)
            killed.append(pid)
            return
        time.sleep(0.01)


def while_one_is_killed(client, work):
    done, killed = threading.Event(), []
    killer = threading.Thread(target=kill_one, args=(client, done, killed))
    killer.start()
    try:
        answers = work()
    finally:
        done.set()
        killer.join()
    assert killed, "the work was done before a worker could be killed"
    return answers


def test_a_batch_survives_the_loss_of_a_worker(client):
    table = pandas.DataFrame({"section": ["IPE 300", "HEA 200", "SHS 120x5"] * 4000,
                              "l": [3.0 + i % 50 / 10 for i in range(12000)],
                              "qload[1]": [1.0 + i % 7 for i in range(12000)]})
    split = frames.from_pandas(table, npartitions=60)
    answers = while_one_is_killed(client, lambda: kestrum.dask.batch(split).compute())
    assert answers.to_csv() == kestrum.batch(table).to_csv()


def test_an_envelope_survives_the_loss_of_a_worker(client):
    source = os.environ["KESTRUM_SOURCE"] + "/examples/frames/"
    one, loads = pandas.read_csv(source + "members.csv"), pandas.read_csv(source + "forces.csv")
    copies = range(60)
    members = pandas.concat([one.assign(id=str(i) + one["id"]) for i in copies], ignore_index=True)
    forces = pandas.concat([loads.assign(member=str(i) + loads["member"]) for i in copies], ignore_index=True)
    forces = forces.sort_values("case", kind="stable", ignore_index=True)  # as many programs write them
    members = members.drop(columns="group")
    split = frames.from_pandas(forces, npartitions=24, sort=False)
    answers = while_one_is_killed(client, lambda: kestrum.dask.envelope(members, split))
    assert answers.to_csv() == kestrum.envelope(members, forces).to_csv()
